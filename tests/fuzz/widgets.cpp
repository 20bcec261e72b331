#include "pages/keydisplaynames.h"
#include "pages/keylabel.h"
#include "pages/shortcutitem.h"
#include "pages/showntext.h"
#include "pages/wordslabel.h"
#include "tests/fuzz/target.h"

#include <QCoreApplication>
#include <QImage>

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
