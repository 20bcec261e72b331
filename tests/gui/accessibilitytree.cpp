#include "sandbox/controlcenter/pagecontrols.h"
#include "tests/gui/shownpages.h"
#include "tests/support/testprogram.h"
#include "voice/voiceanimationwidget.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zapplicationsetup.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

using testsupport::AccessiblePages;
using namespace controlcenter;

namespace {

constexpr int pageWidth = 640; // px

using Interfaces = QVector<QAccessibleInterface *>;

/** Qt shows the list of a combo box to assistive technologies also while it is closed. */
bool isClosedComboBox(const QAccessibleInterface *part)
{
    const auto *box = qobject_cast<QComboBox *>(part->object());
    return box && !box->view()->isVisible();
}

/** Everything that is shown below @p top, and itself, in the order in which it is read out. */
void collect(QAccessibleInterface *top, Interfaces *found)
{
    if (!top || top->state().invisible)
        return;
    found->append(top);
    if (isClosedComboBox(top))
        return;
    for (int i = 0; i < top->childCount(); ++i)
        collect(top->child(i), found);
}

Interfaces partsOf(QWidget *window)
{
    Interfaces found;
    collect(QAccessible::queryAccessibleInterface(window), &found);
    return found;
}

QAccessibleInterface *labelOf(const QAccessibleInterface *part)
{
    const auto labels = part->relations(QAccessible::Label);
    return labels.isEmpty() ? nullptr : labels.constFirst().first;
}

/** What people are told it is: its label, as for combo boxes, or else its name. */
QString nameOf(const QAccessibleInterface *part)
{
    const QAccessibleInterface *label = labelOf(part);
    return label ? label->text(QAccessible::Name) : part->text(QAccessible::Name);
}

QString describe(const QAccessibleInterface *part)
{
    const char *type = part->object() ? part->object()->metaObject()->className() : "part";
    return QStringLiteral("%1 \"%2\"").arg(QLatin1String(type), nameOf(part));
}

/** The stops of Tab in the window, from the first one on. */
QVector<QWidget *> stopsOf(QWidget *window)
{
    QVector<QWidget *> stops = focusStops([window] { QTest::keyClick(window, Qt::Key_Tab); });
    // Begin with the one that is first in the focus chain, wherever the focus was.
    const auto first =
        std::min_element(stops.begin(), stops.end(), [window](const QWidget *a, const QWidget *b) {
            return a->mapTo(window, QPoint()).y() < b->mapTo(window, QPoint()).y();
        });
    std::rotate(stops.begin(), first, stops.end());
    return stops;
}

/** Whether people read @p before earlier: further up, or in the same line further to the left. */
bool isReadBefore(const QRect &before, const QRect &after)
{
    if (before.bottom() <= after.center().y() || before.center().y() <= after.top())
        return true;
    return before.top() <= after.center().y() && before.left() < after.left();
}

/** What is wrong with the window's accessible parts; empty when all is well. */
QStringList faultsOf(QWidget *window)
{
    QStringList faults;
    const QVector<QWidget *> stops = stopsOf(window);
    QRect previous;
    for (QAccessibleInterface *part : partsOf(window)) {
        const bool isContainer = part->childCount() > 0 && !isClosedComboBox(part);
        const bool isControl = isControlRole(part->role()) || part->state().focusable;
        if (isControl && nameOf(part).trimmed().isEmpty())
            faults.append(QStringLiteral("without a name: ") + describe(part));
        if (isControl && !isControlRole(part->role()))
            faults.append(QStringLiteral("without the role of a control: ") + describe(part));
        auto *widget = qobject_cast<QWidget *>(part->object());
        if (part->state().focusable && widget && widget->isEnabled() && !stops.contains(widget))
            faults.append(QStringLiteral("not reached by Tab: ") + describe(part));
        if (!isContainer && nameOf(part).isEmpty() && !qobject_cast<QLabel *>(widget))
            faults.append(QStringLiteral("decoration: ") + describe(part));
        if (isControl || (!isContainer && !nameOf(part).isEmpty())) {
            if (!previous.isNull() && !isReadBefore(previous, part->rect()))
                faults.append(QStringLiteral("read out too late: ") + describe(part));
            previous = part->rect();
        }
    }
    for (int i = 1; i < stops.size(); ++i) {
        const auto place = [window](const QWidget *stop) {
            return QRect(stop->mapTo(window, QPoint()), stop->size());
        };
        if (!isReadBefore(place(stops.at(i - 1)), place(stops.at(i))))
            faults.append(QStringLiteral("reached by Tab too late: ") +
                          describe(QAccessible::queryAccessibleInterface(stops.at(i))));
    }
    return faults;
}

} // namespace

/** What assistive technologies see of every page in every state. */
class AccessibilityTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void pageHasNoFaults_data();
    void pageHasNoFaults();
    void switchesAreCheckBoxesNamedByTheirTitle_data();
    void switchesAreCheckBoxesNamedByTheirTitle();
    void comboBoxesAreNamedByTheirRow_data();
    void comboBoxesAreNamedByTheirRow();
    void waveCanBePressed();
    void verdictIsReadOutWithTheLink();
    void faultsAreFound_data();
    void faultsAreFound();

private:
    AccessiblePages m_pages;
};

void AccessibilityTreeTest::initTestCase()
{
    Ztk::Widget::ZApplicationSetup::install();
    QVERIFY(m_pages.start());
}

void AccessibilityTreeTest::cleanup()
{
    m_pages.close();
}

void AccessibilityTreeTest::pageHasNoFaults_data()
{
    QTest::addColumn<QString>("state");
    for (const QString &state : AccessiblePages::states())
        QTest::newRow(qPrintable(state)) << state;
}

void AccessibilityTreeTest::pageHasNoFaults()
{
    QFETCH(QString, state);
    QVERIFY(m_pages.open(state, pageWidth));
    QVERIFY(stopsOf(m_pages.window()).size() >= 2);
    const QStringList faults = faultsOf(m_pages.window());
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void AccessibilityTreeTest::switchesAreCheckBoxesNamedByTheirTitle_data()
{
    pageHasNoFaults_data();
}

void AccessibilityTreeTest::switchesAreCheckBoxesNamedByTheirTitle()
{
    QFETCH(QString, state);
    QVERIFY(m_pages.open(state, pageWidth));
    const auto rows = m_pages.page()->findChildren<zcc::widgets::SwitchWidget *>();
    QVERIFY(!rows.isEmpty());
    for (zcc::widgets::SwitchWidget *row : rows) {
        const QAccessibleInterface *box =
            QAccessible::queryAccessibleInterface(row->findChild<QAbstractButton *>());
        QCOMPARE(box->role(), QAccessible::CheckBox);
        QCOMPARE(box->text(QAccessible::Name), row->title());
        for (int flips = 0; flips < 2; ++flips) {
            row->setChecked(!row->checked());
            QCOMPARE(bool(box->state().checked), row->checked());
        }
    }
}

void AccessibilityTreeTest::comboBoxesAreNamedByTheirRow_data()
{
    pageHasNoFaults_data();
}

void AccessibilityTreeTest::comboBoxesAreNamedByTheirRow()
{
    QFETCH(QString, state);
    QVERIFY(m_pages.open(state, pageWidth));
    const auto boxes = m_pages.page()->findChildren<QComboBox *>();
    QVERIFY(!boxes.isEmpty());
    for (QComboBox *box : boxes) {
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(box);
        QCOMPARE(accessible->role(), QAccessible::ComboBox);
        QAccessibleInterface *label = labelOf(accessible);
        QVERIFY(label);
        // The label stands in the same row.
        QCOMPARE(label->object()->parent(), box->parent());
        QCOMPARE(nameOf(accessible), qobject_cast<QLabel *>(label->object())->text());
        // For technologies that know no relations; Qt tells the others the value instead.
        QCOMPARE(box->accessibleName(), nameOf(accessible));
        QCOMPARE(accessible->text(QAccessible::Value), box->currentText());
    }
}

void AccessibilityTreeTest::waveCanBePressed()
{
    QVERIFY(m_pages.open(QStringLiteral("Desktop AI Assistant, voice test running"), pageWidth));
    auto *wave = m_pages.page()->findChild<VoiceAnimationWidget *>();
    QVERIFY(wave->hasFocus());
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(wave);
    QCOMPARE(accessible->role(), QAccessible::Animation);
    const QString description = accessible->text(QAccessible::Description);
    QVERIFY2(description.startsWith(QStringLiteral("现在请说\"阿岚")), qPrintable(description));
    QVERIFY2(description.endsWith(QStringLiteral("Escape to cancel the test")),
             qPrintable(description));
    QAccessibleActionInterface *actions = accessible->actionInterface();
    QCOMPARE(actions->actionNames().constFirst(), QAccessibleActionInterface::pressAction());
    QSignalSpy stops(wave, &VoiceAnimationWidget::signalStopPaint);
    wave->clearFocus();
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(wave->hasFocus());
    QCOMPARE(stops.count(), 0);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(stops.count(), 1);
    // It is hidden now, and on its way out.
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(stops.count(), 1);
}

void AccessibilityTreeTest::verdictIsReadOutWithTheLink()
{
    QVERIFY(m_pages.open(QStringLiteral("Desktop AI Assistant, voice test finished"), pageWidth));
    const QAccessibleInterface *focus =
        QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    QCOMPARE(focus->text(QAccessible::Name), QStringLiteral("Click here to test again"));
    QCOMPARE(focus->text(QAccessible::Description), QStringLiteral("It sounds good"));
}

// The faults that the tests above look for, made on purpose.
void AccessibilityTreeTest::faultsAreFound_data()
{
    QTest::addColumn<QString>("fault");
    for (const char *fault :
         {"without a name", "without the role of a control", "not reached by Tab", "decoration",
          "read out too late", "reached by Tab too late"})
        QTest::newRow(fault) << QString::fromLatin1(fault);
}

void AccessibilityTreeTest::faultsAreFound()
{
    QFETCH(QString, fault);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new QPushButton(QStringLiteral("first"));
    auto *second = new QPushButton(QStringLiteral("second"));
    layout->addWidget(first);
    layout->addWidget(second);
    layout->addWidget(new QPushButton(QStringLiteral("third")));
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(faultsOf(&window), QStringList());

    if (fault == QLatin1String("without a name"))
        second->setText(QString());
    else if (fault == QLatin1String("without the role of a control"))
        window.setFocusPolicy(Qt::StrongFocus);
    else if (fault == QLatin1String("not reached by Tab"))
        second->setFocusPolicy(Qt::ClickFocus);
    else if (fault == QLatin1String("decoration"))
        (new QFrame(&window))->show();
    else if (fault == QLatin1String("read out too late"))
        second->lower();
    else
        QWidget::setTabOrder(second, first);
    layout->activate();
    const QStringList found = faultsOf(&window).filter(fault);
    QVERIFY2(!found.isEmpty(), qPrintable(faultsOf(&window).join(QLatin1Char('\n'))));
}

TEST_CLASS(QApplication, AccessibilityTreeTest)
#include "accessibilitytree.moc"
