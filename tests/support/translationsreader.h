#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace testsupport {

/** One message of a catalogue, as its TS file has it. */
struct CatalogueMessage
{
    QString context;
    QString source;
    QString comment;      // tells apart equal sources; mostly empty
    QString extraComment; // what the sources tell the translator
    QString translation;
    QString type; // empty for a finished translation

    /** What the sources say about the message: everything but its translation. One line of text. */
    QString key() const;
};

/** A message catalogue read from the text of a TS file. Plain data, no ties to the file. */
struct Catalogue
{
    QString version;
    QString language;
    QStringList contexts; // in the file's order
    QVector<CatalogueMessage> messages;
    QString error; // empty when the text is well-formed

    static Catalogue fromXml(const QByteArray &xml);
    static Catalogue fromFile(const QString &path);

    /** Keys of all messages, in the file's order. */
    QStringList keys() const;
    /** Translation of `source` in `context`; a null string if there is no such message. */
    QString translation(const QString &context, const QString &source) const;
};

/** The languages that the module carries, in the order of its bundle. */
QStringList catalogueLanguages();
/** File name of a language's catalogue, without a folder. */
QString catalogueFileName(const QString &language);

} // namespace testsupport
