#pragma once

#include <QColor>
#include <QLabel>

namespace controlcenter {

/** Around every page, the module's and the window's own, which has the same inside once more. */
constexpr int pageMargin = 10; // px

/** Hairline between two surfaces of the window. */
QColor separatorColor(const QPalette &palette);

/** Background of the side bar: a shade away from the window's. */
QColor sideBarColor(const QPalette &palette);

/** Texts that explain, readable in both themes. */
QColor secondaryTextColor(const QPalette &palette);

/**
 * A plain text that begins where the layout does. QLabel follows the direction of its text, which
 * may be another one.
 */
class LeadingLabel : public QLabel
{
public:
    explicit LeadingLabel(const QString &text = QString(),
                          Qt::Alignment vertical = Qt::AlignVCenter, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void align();

    Qt::Alignment m_vertical;
};

} // namespace controlcenter
