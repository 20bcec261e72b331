#pragma once

#include "zcc/widgets/settingsitem.h"
#include "zcc/zccglobal.h"

#include <QFrame>

class QVBoxLayout;

namespace zcc {
namespace widgets {

/**
 * A vertical group of settings rows.
 *
 * Rows at a distance of one pixel or less are drawn as one block with common outer corners.
 */
class ZCC_EXPORT SettingsGroup : public QFrame
{
    Q_OBJECT

public:
    explicit SettingsGroup(QFrame *parent = nullptr);

    /** Distance between rows, in pixels. */
    void setSpacing(int spacing);

    /**
     * Appends @p item, shows it and becomes its parent. An item that the group already holds moves
     * to the end; null is ignored. The item gets its background.
     */
    void appendItem(SettingsItem *item);

    /**
     * Takes @p item out of the group without deleting it: it is hidden and keeps the group as
     * parent. An item that the group does not hold is ignored.
     */
    void removeItem(SettingsItem *item);

    /** Number of rows. */
    int itemCount() const;

    /** The row at @p index, or null when there is none. */
    SettingsItem *item(int index) const;

    /** The layout that holds the rows, for its margins. */
    QVBoxLayout *itemLayout() const;

    /**
     * Whether @p item is drawn as one block with the visible row before it (@p step -1) or after it
     * (@p step 1).
     */
    bool joinsNeighbour(const SettingsItem *item, int step) const;

private:
    void updateRows();

    QVBoxLayout *m_layout;
};

} // namespace widgets
} // namespace zcc
