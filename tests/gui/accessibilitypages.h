#pragma once

#include "tests/support/serviceprocess.h"

#include <QScrollArea>
#include <QStringList>

#include <memory>

namespace testsupport {

/**
 * The module's pages in every state that a user can bring them to, on running services.
 *
 * A page is shown as the control center shows it, in a window that scrolls.
 */
class AccessiblePages
{
public:
    /** Names of the states, the page first: "Desktop AI Assistant, voice test running". */
    static QStringList states();

    /** Starts the services; false, with a log line, when one does not start. */
    bool start();

    /**
     * Opens the page of a state in a window @p width pixels wide, and brings it to the state. False
     * when that fails.
     */
    bool open(const QString &state, int width);

    /** Closes the page; the services are as at the start. */
    void close();

    QWidget *window() const { return m_window.get(); }
    QWidget *page() const { return m_window->widget(); }

private:
    bool bringVoiceTestTo(const QString &state);

    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    ServiceProcess m_aiService{QStringLiteral("aiservice")};
    std::unique_ptr<QScrollArea> m_window;
};

} // namespace testsupport
