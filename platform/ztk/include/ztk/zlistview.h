#pragma once

#include "ztk/ztkglobal.h"

#include <QListView>

namespace Ztk {
namespace Widget {

/**
 * The desktop's list: rounded rows with hover, focus and selection in the theme's colours.
 *
 * An item may carry its own margins, a QMargins under MarginsRole.
 */
class ZTK_EXPORT ZListView : public QListView
{
    Q_OBJECT

public:
    enum ItemDataRole { MarginsRole = Qt::UserRole + 1 };

    explicit ZListView(QWidget *parent = nullptr);
};

} // namespace Widget
} // namespace Ztk
