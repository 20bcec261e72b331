#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

namespace sandbox {

/** One step of a recognition, as the client is told of it. */
struct Hypothesis
{
    enum Kind {
        Replace, ///< The words stand in place of those of the step before.
        Append,  ///< The words of the step before are final; these come behind them.
    };

    Kind kind = Replace;
    QStringList words;
    int number = 1;    ///< counts the steps of a recognition from 1
    bool last = false; ///< nothing follows

    /** The result text of the recognition contract, for the session called @p sessionId. */
    QString toJson(const QString &sessionId) const;
};

} // namespace sandbox

Q_DECLARE_METATYPE(sandbox::Hypothesis)
