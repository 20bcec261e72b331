#include "pages/pagelayout.h"

#include "pages/showntext.h"
#include "pages/themedtip.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;
using Ztk::Widget::ZFontSizeManager;

namespace pagelayout {

QVBoxLayout *addMainLayout(QWidget *page)
{
    auto *layout = new QVBoxLayout(page);
    layout->setSpacing(0);
    layout->setAlignment(Qt::AlignTop);
    layout->setContentsMargins(10, 10, 10, 10);
    return layout;
}

QColor tipColor(bool lightTheme)
{
    return QColor(lightTheme ? QStringLiteral("#8AA1B4") : QStringLiteral("#C0C6D4"));
}

QColor tipColor(const QWidget &page)
{
    // A light theme's bright text is black.
    return tipColor(page.palette().brightText().color().name() == QLatin1String("#000000"));
}

void setTextColor(QLabel *label, const QColor &color)
{
    QPalette palette = label->palette();
    palette.setBrush(QPalette::All, QPalette::Text, QBrush(color));
    label->setPalette(palette);
}

void setFontStep(QWidget *widget, ZFontSizeManager::SizeType step)
{
    widget->setFont(ZFontSizeManager::instance()->get(step, widget->font()));
}

TipsLabel *newTip(QWidget *page, const QString &text)
{
    auto *tip = new TipsLabel(text, page);
    tip->setTextFormat(Qt::PlainText);
    tip->setWordWrap(true);
    setFontStep(tip, ZFontSizeManager::T8);
    setTextColor(tip, tipColor(*page));
    new ThemedTip(tip, page); // the tip's
    return tip;
}

void addHint(QVBoxLayout *layout, const QString &text, const QString &shortcut)
{
    const QString shown = showntext::cut(shortcut, showntext::longestShortcut);
    TipsLabel *hint = newTip(layout->parentWidget(), text.arg(showntext::partOfLine(shown)));
    QMargins margins = hint->contentsMargins();
    margins.setLeft(tipLeftMargin);
    hint->setContentsMargins(margins);
    layout->addWidget(hint);
    layout->addSpacing(10);
}

SettingsGroup *addGroup(QVBoxLayout *layout, int spacing)
{
    auto *group = new SettingsGroup;
    group->setSpacing(spacing);
    group->itemLayout()->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(group);
    return group;
}

SwitchWidget *newSwitch(const QString &title)
{
    auto *row = new SwitchWidget(title);
    setFontStep(row, ZFontSizeManager::T6);
    return row;
}

ComboBoxRow addComboBoxRow(SettingsGroup *group, const QString &label)
{
    const ComboBoxRow row = {new SettingsItem, new QComboBox};
    row.item->addBackground();
    group->appendItem(row.item);

    auto *title = new QLabel(label);
    setFontStep(title, ZFontSizeManager::T6);
    title->setBuddy(row.comboBox);
    row.comboBox->setAccessibleName(label);
    auto *layout = new QHBoxLayout(row.item);
    layout->addWidget(title);
    layout->addWidget(row.comboBox);
    return row;
}

} // namespace pagelayout
