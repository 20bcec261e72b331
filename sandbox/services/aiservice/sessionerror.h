#pragma once

namespace sandbox {

/** What the session manager answers as errorcode and as the result of freeSession. */
enum SessionError {
    SessionOk = 0,
    SessionAbilityUnknown = 1,    ///< no ability of that name is known at all
    SessionAbilityNotOffered = 2, ///< a known ability that this service does not have
    SessionLimitReached = 3,      ///< as many sessions are open as the state allows
    SessionNotOpen = 4,           ///< nothing to free
};

} // namespace sandbox
