#pragma once

#include "sandbox/controlcenter/controlcenterwindow.h"
#include "tests/support/serviceprocess.h"

#include <QTranslator>

#include <memory>
#include <vector>

namespace testsupport {

constexpr double usualText = 10.5;  // points
constexpr double largeText = 15.75; // half as large again
constexpr double hugeText = 24;

constexpr QSize usualWindow(1100, 720);
constexpr QSize smallWindow(500, 400);
constexpr QSize largeWindow(2500, 1400);

const QString assistantPageName = QStringLiteral("Desktop AI Assistant");

/** The sandbox's window with the built module on running services, in any language and text size.
 */
class ShownWindow
{
public:
    /** Starts the services and loads the module; once. False when that fails. */
    bool start();

    /** Texts of @p locale from now on; those of "long" are made up. False when there are none. */
    bool useLocale(const QString &locale, double textSize = usualText);

    /** Opens a window of that size with the module at its first page. False when it is not seen. */
    bool open(const QSize &size);

    /** Closes it and forgets the language. */
    void close();

    /** Does all that is due, deletions included. */
    static void settle();

    /** What a ruler finds, after @p where; looks again for a while until it finds nothing. */
    QString layoutProblems(const QString &where) const;

    zccV20::ModuleInterface *module() const { return m_module; }
    controlcenter::ControlCenterWindow *get() const { return m_window.get(); }
    controlcenter::ControlCenterWindow *operator->() const { return m_window.get(); }

private:
    const IsolatedHome m_home;
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    ServiceProcess m_ai{QStringLiteral("aiservice")};
    zccV20::ModuleInterface *m_module = nullptr;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
    std::unique_ptr<controlcenter::ControlCenterWindow> m_window;
};

} // namespace testsupport
