#include "sandbox/controlcenter/looks/lookpictures.h"

#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/contrastcheck.h"
#include "sandbox/controlcenter/controlcenterwindow.h"

#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QElapsedTimer>
#include <QPainter>

using Ztk::Gui::ZGuiApplicationHelper;

namespace controlcenter {
namespace {

constexpr QSize lookWindow(1100, 720); // the usual one, and no larger for large texts
constexpr int longestSettling = 5000;  // ms, on a busy machine
constexpr int unchangedForGood = 300;  // ms in which nothing got better
constexpr int problemWidth = 3;        // px
const QString problemsKey = QStringLiteral("Problems");

// What is wrong with a place of the window once its layout has settled.
QVector<LookProblem> problemsOf(const ControlCenterWindow &window, QImage *picture)
{
    QElapsedTimer waited;
    QElapsedTimer unchanged;
    waited.start();
    unchanged.start();
    QVector<LookProblem> problems;
    do {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        const QVector<LookProblem> found = layoutProblems(&window);
        if (!window.isComplete() || textsOf(found) != textsOf(problems))
            unchanged.start();
        problems = found;
    } while (
        (!window.isComplete() || (!problems.isEmpty() && unchanged.elapsed() < unchangedForGood)) &&
        waited.elapsed() < longestSettling);
    *picture = const_cast<ControlCenterWindow &>(window).grab().toImage();
    return problems + contrastProblems(&window, *picture);
}

} // namespace

QVector<Look> allLooks()
{
    QVector<Look> looks;
    for (const int percent : {100, 150})
        for (const bool mirrored : {false, true})
            for (const auto theme : {ThemeChoice::Light, ThemeChoice::Dark, ThemeChoice::Contrast})
                looks.append({theme, mirrored, percent});
    return looks;
}

QString nameOf(const Look &look)
{
    return QStringLiteral("%1-%2-%3")
        .arg(ThemeChoice::names().at(look.theme),
             look.mirrored ? QStringLiteral("rtl") : QStringLiteral("ltr"))
        .arg(look.textPercent);
}

QString lookFile(const QString &page, const Look &look)
{
    return page.toLower().replace(QLatin1Char(' '), QLatin1Char('-')) + QLatin1Char('-') +
           nameOf(look) + QStringLiteral(".png");
}

QStringList problemsOf(const QImage &picture)
{
    const QString texts = picture.text(problemsKey);
    return texts.isEmpty() ? QStringList() : texts.split(QLatin1Char('\n'));
}

QImage marked(const QImage &picture, const QVector<LookProblem> &problems)
{
    QImage result = picture;
    QPainter painter(&result);
    painter.setPen(QPen(Qt::red, problemWidth));
    for (const LookProblem &problem : problems)
        painter.drawRect(
            problem.place.adjusted(-problemWidth, -problemWidth, problemWidth, problemWidth));
    painter.end();
    if (!problems.isEmpty())
        result.setText(problemsKey, textsOf(problems).join(QLatin1Char('\n')));
    return result;
}

bool drawLooks(zccV20::ModuleInterface *module, const QStringList &places, const QString &folder)
{
    for (const Look &look : allLooks()) {
        setTextPercent(look.textPercent);
        setDirection(look.mirrored ? Direction::RightToLeft : Direction::LeftToRight);
        ZGuiApplicationHelper::instance()->setThemeType(ThemeChoice::typeOf(look.theme));

        ControlCenterWindow window(module);
        window.resize(lookWindow);
        window.show();
        for (const QString &place : places) {
            window.openPlace(place);
            QImage picture;
            const QVector<LookProblem> problems = problemsOf(window, &picture);
            const QString file = QDir(folder).filePath(lookFile(place, look));
            if (!marked(picture, problems).save(file)) {
                qWarning() << file << "cannot be written";
                return false;
            }
        }
    }
    setTextPercent(100);
    setDirection(Direction::OfLanguage);
    return true;
}

} // namespace controlcenter
