#include "pages/keydisplaynames.h"
#include "pages/keylabel.h"
#include "pages/shortcutitem.h"
#include "pages/showntext.h"
#include "pages/wordslabel.h"
#include "proxy/assistantstateproxy.h"
#include "tests/fuzz/target.h"

#include <QCoreApplication>
#include <QImage>
#include <QJsonDocument>
#include <QTextBoundaryFinder>

namespace {

QString replaced(const QString &text, const QString &old, const QString &fresh)
{
    return text.split(old).join(fresh);
}

void checkCut(const QString &text, int limit)
{
    const QString shown = showntext::cut(text, limit);
    if (text.size() <= limit) {
        fuzz::expectEqual("not cut", shown, text);
        return;
    }
    fuzz::expect("short enough", shown.size() <= limit);
    fuzz::expect("marked as cut", shown.endsWith(QChar(0x2026)));
    const int kept = shown.size() - 1;
    fuzz::expectEqual("its beginning", shown.left(kept), text.left(kept));
    // In the whole text, where the cut looks at its beginning only.
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    characters.setPosition(kept);
    fuzz::expect("between characters", characters.isAtBoundary());
    characters.toNextBoundary();
    fuzz::expect("no shorter than needed", characters.position() > limit - 1);
}

} // namespace

// What the keybinding daemon answers: the first byte says how, the rest is the text. The text that
// comes of it, and how it is cut.
FUZZ_TARGET(shortcutreply)
{
    const QString text = QString::fromUtf8(input.mid(1));
    const char kind = input.isEmpty() ? 'e' : input.at(0);
    switch (kind) {
    case 'e':
        fuzz::setAnswers({fuzz::errorReply()});
        break;
    case 'n':
        fuzz::setAnswers({fuzz::reply({})});
        break;
    case 'i':
        fuzz::setAnswers({fuzz::reply({7, text})});
        break;
    case 'v':
        fuzz::setAnswers({fuzz::reply({QVariant(QVariantList{text})})});
        break;
    default:
        fuzz::setAnswers({fuzz::reply({text, 7})}); // more than there should be does no harm
        break;
    }
    const QString json = QByteArray("einv").contains(kind) ? QString() : text;

    const QVariantMap shortcut = QJsonDocument::fromJson(json.toUtf8()).toVariant().toMap();
    const bool known = shortcut.contains(QStringLiteral("Accels"));
    const QVariant list = shortcut.value(QStringLiteral("Accels"));
    const QVariant first = list.type() == QVariant::List ? list.toList().value(0) : QVariant();
    QString expected = first.type() == QVariant::String ? first.toString() : QString();
    expected = replaced(expected, QStringLiteral("<"), QString());
    expected = replaced(expected, QStringLiteral(">"), QStringLiteral("+"));
    expected = replaced(expected, QStringLiteral("Control"), QStringLiteral("Ctrl"));

    const QString shown = AssistantStateProxy::getShortCut("speech-to-text", 0);
    fuzz::expectEqual("text", shown, expected);
    fuzz::expectEqual("critical lines", fuzz::takeCriticals(), known ? 0 : 1);

    checkCut(shown, showntext::longestShortcut);
    checkCut(text, 1 + (input.isEmpty() ? 0 : uchar(input.back()) % 16));
}

FUZZ_TARGET(setshortcut)
{
    const QString accels = QString::fromUtf8(input);
    QString names = replaced(accels, QStringLiteral("<"), QString());
    names = replaced(names, QStringLiteral(">"), QStringLiteral("-"));
    names = replaced(names, QStringLiteral("_L"), QString());
    names = replaced(names, QStringLiteral("_R"), QString());
    names = replaced(names, QStringLiteral("Control"), QStringLiteral("Ctrl"));
    QStringList expected{QString()};
    for (const QChar c : qAsConst(names))
        if (c == '-')
            expected.append(QString());
        else
            expected.last() += c;
    fuzz::expectEqual("names", ShortcutItem::keyNames(accels), expected);
}

namespace {

constexpr int width = 400;
constexpr int mostCaps = 64;

QStringList plainCaps(const QString &accels)
{
    QStringList names = ShortcutItem::keyNames(showntext::cut(accels, showntext::longestShortcut));
    if (names.size() > mostCaps)
        names = names.mid(0, mostCaps) + QStringList(QChar(0x2026));
    QStringList caps;
    for (const QString &name : qAsConst(names))
        caps.append(name.isEmpty() ? QStringLiteral("None") : keyDisplayNames.value(name, name));
    return caps;
}

QStringList shownCaps(const ShortcutItem &row)
{
    QStringList caps;
    for (const KeyLabel *cap : row.findChildren<KeyLabel *>())
        if (!cap->isHidden())
            caps.append(cap->text());
    return caps;
}

QImage painted(QWidget *widget)
{
    return widget->grab().toImage();
}

} // namespace

// A row of a title, the first line, and a shortcut; and recognised words: all of it.
FUZZ_TARGET(widgets)
{
    const QString text = QString::fromUtf8(input);
    const QString title = text.section('\n', 0, 0);
    const QString accels = text.section('\n', 1);

    ShortcutItem row;
    row.setTitle(title);
    row.setShortcut(QStringLiteral("<Control>x"));
    row.setShortcut(accels);
    row.resize(width, row.sizeHint().height());
    row.show();
    QCoreApplication::processEvents();
    painted(&row);
    fuzz::expectEqual("caps", shownCaps(row), plainCaps(accels));
    fuzz::expect("no wider than can be shown", row.sizeHint().width() < 8192);
    ShortcutItem::ShortcutInfo told;
    QObject::connect(&row, &ShortcutItem::requestRemove, &row,
                     [&told](const ShortcutItem::ShortcutInfo &info) { told = info; });
    row.onRemoveClick();
    fuzz::expectEqual("name", told.name, title);
    fuzz::expectEqual("accelerator", told.accels, accels);

    WordsLabel words;
    words.setText(showntext::cut(text, showntext::longestWords));
    const int height = words.heightForWidth(width);
    fuzz::expect("at least a line", height >= words.fontMetrics().height());
    fuzz::expect("never lower where it is narrower", words.heightForWidth(width / 2) >= height);
    words.resize(width, height);
    fuzz::expect("painted alike each time", painted(&words) == painted(&words));
}
