#pragma once

#include "tests/support/processpause.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

#include <QDeadlineTimer>

#include <map>
#include <memory>
#include <vector>

/**
 * The services and the sound server of a walk at random. What happens to which of them follows from
 * the number @p draw.
 */
class WalkWorld
{
public:
    /** False, with a log line, when something does not start. */
    bool start();

    // Who stands still does so for a moment, and cannot be steered meanwhile: nothing happens then.
    void serviceDies(quint32 draw);
    void serviceComes(quint32 draw);
    void serviceStandsStill(quint32 draw);
    void serviceAnswersBadly(quint32 draw);
    void serviceAnswersWell(quint32 draw);
    void soundServerDies();
    void soundServerComes();
    void soundServerStandsStill(quint32 draw);
    /** The latest voice test gets its verdict. */
    void judge();
    /** Another microphone is the default one. */
    void changeMicrophone();

    /** All are there and answer well. False when they do not come. */
    bool recover();

private:
    testsupport::ServiceProcess *any(quint32 draw) const;
    bool isSteerable(testsupport::ServiceProcess *service) const;

    testsupport::ProcessPause m_pause;
    testsupport::VirtualMicrophone m_microphone;
    bool m_soundServerRuns = false;
    QDeadlineTimer m_soundStands;
    std::vector<std::unique_ptr<testsupport::ServiceProcess>> m_services;
    std::map<const testsupport::ServiceProcess *, QDeadlineTimer> m_stands;
};
