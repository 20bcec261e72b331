#pragma once

#include <QByteArray>
#include <QMap>
#include <QTemporaryDir>

namespace testsupport {

/**
 * A home of its own for the test and the processes it starts: HOME and the XDG folders point into a
 * temporary folder that goes with this object, which also puts the variables back.
 *
 * Make it before the application object: Qt remembers where settings live at their first use.
 */
class IsolatedHome
{
public:
    IsolatedHome();
    ~IsolatedHome();

    IsolatedHome(const IsolatedHome &) = delete;
    IsolatedHome &operator=(const IsolatedHome &) = delete;

    /** XDG_CONFIG_HOME / @p relativePath. */
    QString configFile(const QString &relativePath) const;

    /** XDG_DATA_HOME / @p relativePath. */
    QString dataFile(const QString &relativePath) const;

    /** The settings store of the wake-up service. */
    QString wakeupSettingsFile() const;

    /** Writes @p contents to that store, whatever it is; its folder is made if needed. */
    bool writeWakeupSettings(const QByteArray &contents) const;

    /** Removes everything in the home. */
    void clear();

private:
    void makeFolders() const;

    QTemporaryDir m_folder;
    QMap<QByteArray, QByteArray> m_before; // null: the variable was not set
};

} // namespace testsupport
