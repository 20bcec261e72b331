#include "sandbox/controlcenter/tour/tour.h"

#include "sandbox/controlcenter/controlcenterwindow.h"

#include <QRegularExpression>
#include <QTextStream>

namespace controlcenter {

Tour::Tour(ControlCenterWindow *window, const QString &folder)
    : m_driver(window)
    , m_folder(folder)
{
}

bool Tour::run(const TourSteps &steps)
{
    QTextStream out(stdout);
    if (!m_folder.mkpath(QStringLiteral("."))) {
        out << "FAIL  the folder " << m_folder.path() << " cannot be made" << '\n';
        return false;
    }
    removeOldPictures();
    m_driver.window()->activateWindow();
    if (!m_driver.waitFor([this] { return m_driver.window()->isActiveWindow(); })) {
        out << "FAIL  the window does not become active" << '\n';
        return false;
    }

    int failures = 0;
    int pictures = 0;
    for (const TourStep &step : steps) {
        QString file;
        if (!step.picture.isEmpty())
            file = QStringLiteral("%1-%2.png")
                       .arg(++pictures, 2, 10, QLatin1Char('0'))
                       .arg(step.picture);
        const QString problem = runStep(step, file);
        out << (problem.isEmpty() ? "ok    " : "FAIL  ") << step.title;
        if (!file.isEmpty())
            out << " -> " << file;
        if (!problem.isEmpty())
            out << ": " << problem;
        out << '\n';
        out.flush();
        failures += problem.isEmpty() ? 0 : 1;
    }
    out << steps.size() << " steps, " << failures << " failed, " << pictures << " pictures in "
        << m_folder.path() << '\n';
    return failures == 0;
}

void Tour::removeOldPictures()
{
    const QRegularExpression ours(QStringLiteral("^\\d{2,}-.*\\.png$"));
    for (const QString &file : m_folder.entryList(QDir::Files)) {
        if (ours.match(file).hasMatch())
            m_folder.remove(file);
    }
}

QString Tour::runStep(const TourStep &step, const QString &file)
{
    QString problem = step.run(m_driver);
    if (!file.isEmpty()) {
        const QString pictureProblem = savePicture(file);
        if (problem.isEmpty())
            problem = pictureProblem;
    }
    return problem;
}

QString Tour::savePicture(const QString &file)
{
    const QString path = m_folder.filePath(file);
    return m_driver.grab().save(path) ? QString()
                                      : QStringLiteral("%1 cannot be written").arg(path);
}

} // namespace controlcenter
