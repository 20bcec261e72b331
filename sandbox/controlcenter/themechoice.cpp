#include "sandbox/controlcenter/themechoice.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSettings>

using Ztk::Gui::ZGuiApplicationHelper;

namespace controlcenter {
namespace {

const QLatin1String portal("org.freedesktop.portal.Desktop");
const QLatin1String portalPath("/org/freedesktop/portal/desktop");
const QLatin1String portalSettings("org.freedesktop.portal.Settings");
const QLatin1String appearanceGroup("org.freedesktop.appearance");
const QLatin1String colorScheme("color-scheme");
constexpr uint prefersDark = 1;
const QString themeKey = QStringLiteral("theme");

// The sandbox has a session bus of its own, and leaves the address of the desktop's here.
QDBusConnection desktopBus()
{
    const QString address = qEnvironmentVariable("DESKTOP_SESSION_BUS_ADDRESS");
    return address.isEmpty() ? QDBusConnection::sessionBus()
                             : QDBusConnection::connectToBus(address, QStringLiteral("desktop"));
}

QSettings settings()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("corvane-sandbox"),
                     QStringLiteral("control-center"));
}

} // namespace

ThemeChoice::ThemeChoice(QObject *parent)
    : QObject(parent)
    , m_desktop(desktopBus())
    , m_choice(ZGuiApplicationHelper::instance()->themeType() == ZGuiApplicationHelper::DarkType
                   ? Dark
                   : Light)
{
    connect(ZGuiApplicationHelper::instance(), &ZGuiApplicationHelper::themeTypeChanged, this,
            [this](ZGuiApplicationHelper::ColorType shown) {
                if (shown == type())
                    return;
                m_choice = shown == ZGuiApplicationHelper::DarkType ? Dark : Light;
                Q_EMIT changed();
            });
}

ThemeChoice::Choice ThemeChoice::choice() const
{
    return m_choice;
}

QString ThemeChoice::textOf(Choice choice)
{
    switch (choice) {
    case Light:
        break;
    case Dark:
        return tr("Dark");
    case System:
        return tr("Follow the system");
    }
    return tr("Light");
}

QString ThemeChoice::nameOf(Choice choice)
{
    static const QStringList names{QStringLiteral("light"), QStringLiteral("dark"),
                                   QStringLiteral("system")};
    return names.at(choice);
}

ThemeChoice::Choice ThemeChoice::named(const QString &name)
{
    const QString wanted = name.isEmpty() ? settings().value(themeKey).toString() : name;
    for (const Choice choice : {Dark, System})
        if (nameOf(choice) == wanted)
            return choice;
    return Light;
}

void ThemeChoice::choose(Choice choice)
{
    settings().setValue(themeKey, nameOf(choice));
    use(choice);
}

void ThemeChoice::use(Choice choice)
{
    m_choice = choice;
    if (choice == System)
        askDesktop();
    ZGuiApplicationHelper::instance()->setThemeType(type());
    Q_EMIT changed();
}

void ThemeChoice::takeSetting(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == appearanceGroup && key == colorScheme)
        takePreference(value.variant());
}

void ThemeChoice::askDesktop()
{
    if (m_asked)
        return; // it has been listened to since
    m_asked = true;
    // From whoever owns the name: asking who that is would wait for the bus.
    m_desktop.connect(QString(), portalPath, portalSettings, QStringLiteral("SettingChanged"), this,
                      SLOT(takeSetting(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, portalPath, portalSettings, QStringLiteral("Read"));
    question.setArguments({QString(appearanceGroup), QString(colorScheme)});
    auto *answer = new QDBusPendingCallWatcher(m_desktop.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        answer->deleteLater();
        if (reply.isValid())
            takePreference(reply.value().variant());
    });
}

// The portal wraps what it is asked for once more than what it tells by itself.
void ThemeChoice::takePreference(const QVariant &preference)
{
    const QVariant value = preference.canConvert<QDBusVariant>()
                               ? preference.value<QDBusVariant>().variant()
                               : preference;
    m_desktopIsDark = value.toUInt() == prefersDark;
    if (m_choice == System)
        ZGuiApplicationHelper::instance()->setThemeType(type());
}

ZGuiApplicationHelper::ColorType ThemeChoice::type() const
{
    const bool dark = m_choice == System ? m_desktopIsDark : m_choice == Dark;
    return dark ? ZGuiApplicationHelper::DarkType : ZGuiApplicationHelper::LightType;
}

} // namespace controlcenter
