#include "tests/support/translationsreader.h"

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

namespace testsupport {

namespace {

CatalogueMessage readMessage(QXmlStreamReader &xml, const QString &context)
{
    CatalogueMessage message;
    message.context = context;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("comment")) {
            message.comment = xml.readElementText();
        } else if (xml.name() == QLatin1String("extracomment")) {
            message.extraComment = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            message.type = xml.attributes().value(QLatin1String("type")).toString();
            message.translation = xml.readElementText();
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

void readContext(QXmlStreamReader &xml, Catalogue &catalogue)
{
    QString name;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("name")) {
            name = xml.readElementText();
            catalogue.contexts.append(name);
        } else if (xml.name() == QLatin1String("message")) {
            catalogue.messages.append(readMessage(xml, name));
        } else {
            xml.skipCurrentElement();
        }
    }
}

} // namespace

QString CatalogueMessage::key() const
{
    QString text = context + QLatin1String(": ") + source;
    if (!comment.isEmpty())
        text += QLatin1String(" (") + comment + QLatin1Char(')');
    if (!extraComment.isEmpty())
        text += QLatin1String(" //: ") + extraComment;
    return text;
}

Catalogue Catalogue::fromXml(const QByteArray &text)
{
    Catalogue catalogue;
    QXmlStreamReader xml(text);
    if (xml.readNextStartElement() && xml.name() == QLatin1String("TS")) {
        catalogue.version = xml.attributes().value(QLatin1String("version")).toString();
        catalogue.language = xml.attributes().value(QLatin1String("language")).toString();
        while (xml.readNextStartElement())
            if (xml.name() == QLatin1String("context"))
                readContext(xml, catalogue);
            else
                xml.skipCurrentElement();
    } else {
        catalogue.error = QStringLiteral("not a TS file");
    }
    if (xml.hasError())
        catalogue.error = xml.errorString();
    return catalogue;
}

Catalogue Catalogue::fromFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Catalogue catalogue;
        catalogue.error = path + QLatin1String(": ") + file.errorString();
        return catalogue;
    }
    return fromXml(file.readAll());
}

QStringList Catalogue::keys() const
{
    QStringList result;
    for (const CatalogueMessage &message : messages)
        result.append(message.key());
    return result;
}

QString Catalogue::translation(const QString &context, const QString &source) const
{
    const auto found =
        std::find_if(messages.cbegin(), messages.cend(), [&](const CatalogueMessage &message) {
            return message.context == context && message.source == source;
        });
    return found == messages.cend() ? QString() : found->translation;
}

QStringList catalogueLanguages()
{
    return {QStringLiteral("zh_CN"), QStringLiteral("bo"),    QStringLiteral("ug"),
            QStringLiteral("zh_HK"), QStringLiteral("en_US"), QStringLiteral("zh_TW"),
            QStringLiteral("en")};
}

QString catalogueFileName(const QString &language)
{
    return QLatin1String("assistant-control-plugin_") + language + QLatin1String(".ts");
}

} // namespace testsupport
