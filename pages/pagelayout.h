#pragma once

#include <ztk/zfontsizemanager.h>

#include <QColor>

class QComboBox;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace zcc {
namespace widgets {
class SettingsGroup;
class SettingsItem;
class SwitchWidget;
class TipsLabel;
} // namespace widgets
} // namespace zcc

/** The pieces that all settings pages are made of. */
namespace pagelayout {

/** Gives @p page its layout: vertical, no spacing, from the top, margin 10. */
QVBoxLayout *addMainLayout(QWidget *page);

/** Colour of tips and hints on a light or another theme. */
QColor tipColor(bool lightTheme);

/** Colour of the tips and hints of @p page; its palette tells whether the theme is light. */
QColor tipColor(const QWidget &page);

/** Puts @p color on the label's Text role, in all colour groups. */
void setTextColor(QLabel *label, const QColor &color);

/** Sets the font of @p widget to a size step of its own font. */
void setFontStep(QWidget *widget, Ztk::Widget::ZFontSizeManager::SizeType step);

/**
 * Adds a tip to @p page: plain text, word wrap, small, in the colour of the page's theme, which it
 * follows; not yet in a layout.
 */
zcc::widgets::TipsLabel *newTip(QWidget *page, const QString &text);

/** Left contents margin of tips and hints: they begin where the rows' texts do. */
constexpr int tipLeftMargin = 7;

/**
 * Appends a hint to a page's layout, followed by its distance to the first group. In @p text,
 * @p shortcut takes the place of %1.
 */
void addHint(QVBoxLayout *layout, const QString &text, const QString &shortcut);

/** Appends a group of rows to @p layout, with @p spacing between the rows. */
zcc::widgets::SettingsGroup *addGroup(QVBoxLayout *layout, int spacing);

/** A switch with its title, which is a row; not yet in a group. */
zcc::widgets::SwitchWidget *newSwitch(const QString &title);

/** A row with a label and a list; the label names the list. */
struct ComboBoxRow
{
    zcc::widgets::SettingsItem *item;
    QComboBox *comboBox;
};

/** Appends a row with a label and a list to @p group. */
ComboBoxRow addComboBoxRow(zcc::widgets::SettingsGroup *group, const QString &label);

} // namespace pagelayout
