#pragma once

#include <QObject>

namespace sandbox {

class StateStore;

/**
 * The assistant's main window: contract com.corvane.aiassistant.mainWindow.
 *
 * State: "assistant.speaker" (string).
 */
class MainWindow : public QObject
{
    Q_OBJECT

public:
    explicit MainWindow(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    void setVOXASpeaker(const QString &speaker);

private:
    StateStore *m_state;
};

} // namespace sandbox
