#include "doctor/servicevalues.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace doctor {

namespace {

Finding dockFinding(bool hidden)
{
    return {Status::Ok,
            QStringLiteral("dock"),
            QStringLiteral("icon"),
            hidden ? QStringLiteral("is hidden: \"Show in the Dock\" is off")
                   : QStringLiteral("is shown: \"Show in the Dock\" is on"),
            QString(),
            QString()};
}

Finding shortcutFinding(const QString &feature, const QString &answer)
{
    const QString check = QStringLiteral("shortcut");
    const QJsonValue accelerators =
        QJsonDocument::fromJson(answer.toUtf8()).object().value(QStringLiteral("Accels"));
    const QString first = accelerators.toArray().at(0).toString();
    if (!first.isEmpty())
        return {Status::Ok, check, feature, QStringLiteral("is ") + first, QString(), QString()};
    return {Status::Failure,
            check,
            feature,
            accelerators.isArray() ? QStringLiteral("has no keys")
                                   : QStringLiteral("is not known to the keybinding daemon"),
            QStringLiteral("The hint of its page has empty parentheses in place of the shortcut."),
            QStringLiteral("Register the shortcut, of type 0, and give it keys.")};
}

Finding networkFinding(uint state)
{
    // NMState of the NetworkManager D-Bus API.
    static const struct
    {
        uint state;
        const char *name;
    } names[] = {{10, "asleep"},          {20, "disconnected"},    {30, "disconnecting"},
                 {40, "connecting"},      {50, "connected local"}, {60, "connected site"},
                 {70, "connected global"}};
    constexpr uint connectedGlobal = 70;

    QString text = QStringLiteral("is in state %1").arg(state);
    for (const auto &entry : names)
        if (entry.state == state)
            text += QStringLiteral(", ") + QLatin1String(entry.name);
    const QString check = QStringLiteral("network");
    const QString subject = QStringLiteral("NetworkManager");
    if (state == connectedGlobal)
        return {Status::Ok, check, subject, text, QString(), QString()};
    return {
        Status::Failure,
        check,
        subject,
        text,
        QStringLiteral("A voice test ends at once: \"Network unavailable\"."),
        QStringLiteral("Connect the machine so that NetworkManager says 70, connected global.")};
}

} // namespace

QList<Finding> checkValue(const Contract::Method &method, const QVariantList &arguments,
                          const QVariant &answer)
{
    const auto is = [&](const Contract::Method &other) {
        return method.object.interface == other.object.interface && method.name == other.name;
    };
    if (is(Contract::DockIcon::getDockHideStatus()))
        return {dockFinding(answer.toBool())};
    if (is(Contract::Keybinding::GetShortcut()))
        return {shortcutFinding(arguments.value(0).toString(), answer.toString())};
    if (is(Contract::NetworkManager::state()))
        return {networkFinding(answer.toUInt())};
    return {};
}

} // namespace doctor
