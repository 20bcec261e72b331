#pragma once

#include <ztk/zguiapplicationhelper.h>

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace controlcenter {

/**
 * Which theme the window has: one of the three, or the one that the desktop prefers at the time.
 *
 * The desktop says so in the way that all have in common, the settings of its portal
 * (org.freedesktop.portal.Settings). Where there is none, or no preference, the theme is light.
 */
class ThemeChoice : public QObject
{
    Q_OBJECT

public:
    enum Choice { Light, Dark, Contrast, System };

    /** The choice is the theme that the application has. */
    explicit ThemeChoice(QObject *parent = nullptr);

    /** What people call it. */
    static QString textOf(Choice choice);

    /** Their names on a command line, in the order of Choice: "light", "dark", "contrast",
     * "system". */
    static const QStringList &names();

    /** The one with that name; without a name the one that was chosen last, at first Light. */
    static Choice named(const QString &name);

    /** The application's theme for a choice; light for System, until the desktop has answered. */
    static Ztk::Gui::ZGuiApplicationHelper::ColorType typeOf(Choice choice);

    Choice choice() const;

    /** Gives the application the theme; the desktop's as soon as it has answered. */
    void use(Choice choice);

    /** The same, and keeps it for later runs: the user has chosen it. */
    void choose(Choice choice);

Q_SIGNALS:
    /** Also when somebody else has given the application another theme. */
    void changed();

private Q_SLOTS:
    void takeSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void askDesktop();
    void takePreference(const QString &key, const QVariant &preference);
    Ztk::Gui::ZGuiApplicationHelper::ColorType type() const;

    QDBusConnection m_desktop;
    Choice m_choice;
    bool m_asked = false;
    bool m_desktopIsDark = false;
    bool m_desktopHasContrast = false;
};

} // namespace controlcenter
