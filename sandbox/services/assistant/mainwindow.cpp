#include "sandbox/services/assistant/mainwindow.h"

#include "mainwindowadaptor.h"
#include "sandbox/services/common/statestore.h"

namespace sandbox {

namespace {

const QString speakerKey = QStringLiteral("assistant.speaker");

} // namespace

MainWindow::MainWindow(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new MainWindowAdaptor(this);
    m_state->declare(speakerKey, QStringLiteral("x_tovali"));
}

void MainWindow::setVOXASpeaker(const QString &speaker)
{
    m_state->set(speakerKey, speaker);
}

} // namespace sandbox
