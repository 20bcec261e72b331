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
const QLatin1String contrast("contrast");
constexpr uint prefersContrast = 1;
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

ThemeChoice::Choice choiceOf(ZGuiApplicationHelper::ColorType type)
{
    for (const auto choice : {ThemeChoice::Dark, ThemeChoice::Contrast})
        if (ThemeChoice::typeOf(choice) == type)
            return choice;
    return ThemeChoice::Light;
}

} // namespace

ThemeChoice::ThemeChoice(QObject *parent)
    : QObject(parent)
    , m_desktop(desktopBus())
    , m_choice(choiceOf(ZGuiApplicationHelper::instance()->themeType()))
{
    connect(ZGuiApplicationHelper::instance(), &ZGuiApplicationHelper::themeTypeChanged, this,
            [this](ZGuiApplicationHelper::ColorType shown) {
                if (shown == type())
                    return;
                m_choice = choiceOf(shown);
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
    case Contrast:
        return tr("High contrast");
    case System:
        return tr("Follow the system");
    }
    return tr("Light");
}

const QStringList &ThemeChoice::names()
{
    static const QStringList names{QStringLiteral("light"), QStringLiteral("dark"),
                                   QStringLiteral("contrast"), QStringLiteral("system")};
    return names;
}

ThemeChoice::Choice ThemeChoice::named(const QString &name)
{
    const QString wanted = name.isEmpty() ? settings().value(themeKey).toString() : name;
    return Choice(qMax(0, names().indexOf(wanted)));
}

ZGuiApplicationHelper::ColorType ThemeChoice::typeOf(Choice choice)
{
    switch (choice) {
    case Dark:
        return ZGuiApplicationHelper::DarkType;
    case Contrast:
        return ZGuiApplicationHelper::ContrastType;
    default:
        return ZGuiApplicationHelper::LightType;
    }
}

void ThemeChoice::choose(Choice choice)
{
    settings().setValue(themeKey, names().at(choice));
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
    if (group == appearanceGroup)
        takePreference(key, value.variant());
}

void ThemeChoice::askDesktop()
{
    if (m_asked)
        return; // it has been listened to since
    m_asked = true;
    // From whoever owns the name: asking who that is would wait for the bus.
    m_desktop.connect(QString(), portalPath, portalSettings, QStringLiteral("SettingChanged"), this,
                      SLOT(takeSetting(QString, QString, QDBusVariant)));
    for (const QString key : {colorScheme, contrast}) {
        QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, portalSettings,
                                                               QStringLiteral("Read"));
        question.setArguments({QString(appearanceGroup), key});
        auto *answer = new QDBusPendingCallWatcher(m_desktop.asyncCall(question), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, key] {
            const QDBusPendingReply<QDBusVariant> reply = *answer;
            answer->deleteLater();
            if (reply.isValid())
                takePreference(key, reply.value().variant());
        });
    }
}

// The portal wraps what it is asked for once more than what it tells by itself.
void ThemeChoice::takePreference(const QString &key, const QVariant &preference)
{
    const QVariant value = preference.canConvert<QDBusVariant>()
                               ? preference.value<QDBusVariant>().variant()
                               : preference;
    if (key == colorScheme)
        m_desktopIsDark = value.toUInt() == prefersDark;
    else if (key == contrast)
        m_desktopHasContrast = value.toUInt() == prefersContrast;
    if (m_choice == System)
        ZGuiApplicationHelper::instance()->setThemeType(type());
}

ZGuiApplicationHelper::ColorType ThemeChoice::type() const
{
    if (m_choice != System)
        return typeOf(m_choice);
    return typeOf(m_desktopHasContrast ? Contrast : m_desktopIsDark ? Dark : Light);
}

} // namespace controlcenter
