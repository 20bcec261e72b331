#pragma once

#include "sandbox/controlcenter/options.h"

#include <QObject>

#include <memory>

namespace zccV20 {
class ModuleInterface;
}

namespace controlcenter {

class ControlCenterWindow;

/**
 * Keeps a window open, and puts a new one in its place where the user wants texts of another size
 * or another direction: measures are taken when a window is built. The new one is where the old one
 * was, at the same page, with the drawer open.
 *
 * Another language takes another process: a module installs its texts once, for the locale that the
 * process began with.
 */
class WindowKeeper : public QObject
{
    Q_OBJECT

public:
    /** Builds the window for @p module as @p options say, which are in force for the process. */
    WindowKeeper(zccV20::ModuleInterface *module, const Options &options);
    ~WindowKeeper() override;

    ControlCenterWindow *window() const { return m_window.get(); }

    /** Shows the window, and what is to be open first when the event loop runs. */
    void show();

    /** Runs the event loop until it is quit or another language is wanted; gives its exit code. */
    int exec();

    /** The arguments that ask for the window as it was, in another language; empty: none is wanted.
     */
    QStringList argumentsOfSuccessor() const { return m_successor; }

private:
    void build();
    void openFirst();
    void change(const Appearance &wanted);

    zccV20::ModuleInterface *m_module;
    Options m_options;
    QStringList m_successor;
    std::unique_ptr<ControlCenterWindow> m_window;
};

} // namespace controlcenter
