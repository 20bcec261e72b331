#include "doctor/interfacedescription.h"

#include <QFile>
#include <QXmlStreamReader>

namespace doctor {

namespace {

QString attribute(const QXmlStreamReader &xml, const char *name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

// At the start of a method or signal; ends behind it.
Member readMember(QXmlStreamReader &xml, const QString &description)
{
    Member member;
    member.name = attribute(xml, "name");
    member.isSignal = xml.name() == QLatin1String("signal");
    member.description = description;
    QStringList sent;
    QStringList received;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("arg")) {
            const QString type = attribute(xml, "type");
            const QString declared =
                QString(type + QLatin1Char(' ') + attribute(xml, "name")).trimmed();
            // Left out, it is "in" of a method's argument.
            if (member.isSignal || attribute(xml, "direction") != QLatin1String("out")) {
                member.arguments += type;
                sent.append(declared);
            } else {
                member.reply += type;
                received.append(declared);
            }
        }
        xml.skipCurrentElement();
    }
    member.declaration = QStringLiteral("%1(%2)").arg(member.name, sent.join(QStringLiteral(", ")));
    if (!received.isEmpty())
        member.declaration += QStringLiteral(" -> ") + received.join(QStringLiteral(", "));
    return member;
}

} // namespace

QVector<InterfaceDescription> describedInterfaces(const QString &text)
{
    QVector<InterfaceDescription> interfaces;
    QXmlStreamReader xml(text);
    QString comment;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isComment())
            comment = xml.text().toString().simplified();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("interface"))
            interfaces.append({attribute(xml, "name"), {}});
        else if (!interfaces.isEmpty() &&
                 (xml.name() == QLatin1String("method") || xml.name() == QLatin1String("signal")))
            interfaces.last().members.append(readMember(xml, comment));
        comment.clear();
    }
    return xml.hasError() ? QVector<InterfaceDescription>() : interfaces;
}

InterfaceDescription contractOf(const QString &interface)
{
    QFile file(QStringLiteral(":/contracts/%1.xml").arg(interface));
    file.open(QIODevice::ReadOnly);
    return describedInterfaces(QString::fromUtf8(file.readAll())).value(0);
}

} // namespace doctor
