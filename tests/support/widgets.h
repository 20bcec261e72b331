#pragma once

#include <QString>
#include <QStringList>

#include <ctime>
#include <limits>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QWidget;

namespace zcc {
namespace widgets {
class SwitchWidget;
}
} // namespace zcc

namespace testsupport {

/** What showing a megabyte from a service may cost, in ms of processor time. */
#ifdef __SANITIZE_ADDRESS__
constexpr int megabyteLimitMs = 200; // sanitizers take several times as long
#else
constexpr int megabyteLimitMs = 50;
#endif

/**
 * What @p work costs after @p before, which does not count: ms of this program's processor time,
 * since others may be busy; the least of three runs.
 */
template <typename Before, typename Work>
double leastCostMs(Before before, Work work)
{
    double least = std::numeric_limits<double>::max();
    for (int run = 0; run < 3; ++run) {
        before();
        const std::clock_t start = std::clock();
        work();
        least = qMin(least, 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

// Ways to what a person sees on a page. Each returns null when there is no such widget.

/** The switch row with this title. */
zcc::widgets::SwitchWidget *switchTitled(const QWidget *page, const QString &title);

/** The switch itself in a switch row: what has the focus and is clicked. */
QAbstractButton *switchButton(const zcc::widgets::SwitchWidget *row);

/** The combo box number @p index of the page, in the order in which they were made. */
QComboBox *comboBoxAt(const QWidget *page, int index);

/** The check box with this text. */
QCheckBox *checkBoxTitled(const QWidget *page, const QString &text);

/** The label with exactly this text. */
QLabel *labelWithText(const QWidget *page, const QString &text);

/** The first label whose text contains @p part. */
QLabel *labelContaining(const QWidget *page, const QString &part);

/** The texts of all labels of the page, in the order in which they were made. */
QStringList labelTexts(const QWidget *page);

/**
 * Deletes what was scheduled for deletion, and what that schedules in turn. Test functions run
 * outside any event loop, where processing events alone never does that.
 */
void flushDeferredDeletes();

/** The class and object names of all windows without a parent that still exist. */
QStringList topLevelWidgetsLeft();

} // namespace testsupport
