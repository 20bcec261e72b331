#pragma once

#include "tests/support/serviceprocess.h"

#include <QScrollArea>
#include <QStringList>

#include <memory>

namespace accessibility {

/**
 * The module's pages in every state that a user can bring them to, on running services.
 *
 * A page is shown as the control center shows it, in a window that scrolls.
 */
class Pages
{
public:
    /** Names of the states, one word of the page first: "assistant, voice test running". */
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

    testsupport::ServiceProcess m_assistant{QStringLiteral("assistant")};
    testsupport::ServiceProcess m_dock{QStringLiteral("dock")};
    testsupport::ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    testsupport::ServiceProcess m_network{QStringLiteral("networkmanager")};
    testsupport::ServiceProcess m_aiService{QStringLiteral("aiservice")};
    std::unique_ptr<QScrollArea> m_window;
};

} // namespace accessibility
