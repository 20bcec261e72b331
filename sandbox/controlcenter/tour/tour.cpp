#include "sandbox/controlcenter/tour/tour.h"

#include "sandbox/controlcenter/contrastcheck.h"
#include "sandbox/controlcenter/controlcenterwindow.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextStream>

namespace controlcenter {
namespace {

// The list of the pictures, as sha256sum writes and checks it.
const QLatin1String listName(".assistant-tour");

QByteArray checksum(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

// The pictures' names in the order of the steps; empty for a step without a picture.
QStringList pictureNames(const TourSteps &steps)
{
    QStringList names;
    int number = 0;
    for (const TourStep &step : steps)
        names.append(step.picture.isEmpty() ? QString()
                                            : QStringLiteral("%1-%2.png")
                                                  .arg(++number, 2, 10, QLatin1Char('0'))
                                                  .arg(step.picture));
    return names;
}

} // namespace

Tour::Tour(ControlCenterWindow *window, const QString &folder)
    : m_driver(window)
    , m_folder(folder)
{
}

QString Tour::prepareFolder(const TourSteps &steps)
{
    if (!m_folder.mkpath(QStringLiteral(".")))
        return QStringLiteral("The folder %1 cannot be made.").arg(m_folder.path());

    if (!hasOwnList())
        return QStringLiteral("%1 is no list that a tour has written, and would be lost; name "
                              "another folder.")
            .arg(m_folder.filePath(listName));
    const QStringList own = ownPictures();
    for (const QString &name : pictureNames(steps)) {
        const QFileInfo file(m_folder.filePath(name));
        if (!name.isEmpty() && !own.contains(name) && (file.exists() || file.isSymLink()))
            return QStringLiteral(
                       "%1 is no picture that a tour has written, and would be lost; name "
                       "another folder.")
                .arg(file.filePath());
    }
    for (const QString &name : own)
        m_folder.remove(name);
    QFile list(m_folder.filePath(listName));
    if (!list.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QStringLiteral("%1 cannot be written: %2.").arg(list.fileName(), list.errorString());
    return QString();
}

bool Tour::run(const TourSteps &steps)
{
    QTextStream out(stdout);
    m_driver.window()->activateWindow();
    if (!m_driver.waitFor([this] { return m_driver.window()->isActiveWindow(); })) {
        out << "FAIL  the window does not become active" << '\n';
        return false;
    }

    int failures = 0;
    int pictures = 0;
    const QStringList files = pictureNames(steps);
    for (int i = 0; i < steps.size(); ++i) {
        const TourStep &step = steps.at(i);
        const QString &file = files.at(i);
        pictures += file.isEmpty() ? 0 : 1;
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

bool Tour::hasOwnList() const
{
    QFile list(m_folder.filePath(listName));
    if (!list.exists())
        return true;
    static const QRegularExpression lines(QStringLiteral("^([0-9a-f]{64}  [^\n]+\n)*$"));
    return list.open(QIODevice::ReadOnly) &&
           lines.match(QString::fromUtf8(list.readAll())).hasMatch();
}

QStringList Tour::ownPictures() const
{
    QStringList names;
    QFile list(m_folder.filePath(listName));
    if (!list.open(QIODevice::ReadOnly))
        return names;
    for (const QByteArray &line : list.readAll().split('\n')) {
        const int blanks = line.indexOf("  ");
        const QString name = QString::fromUtf8(line.mid(blanks + 2));
        const QFileInfo info(m_folder.filePath(name));
        QFile file(info.filePath());
        if (blanks > 0 && info.fileName() == name && !info.isSymLink() &&
            file.open(QIODevice::ReadOnly) && checksum(file.readAll()) == line.left(blanks))
            names.append(name);
    }
    return names;
}

QString Tour::runStep(const TourStep &step, const QString &file)
{
    QString problem = step.run(m_driver);
    if (!file.isEmpty()) {
        const QString pictureProblem = takePicture(file);
        if (problem.isEmpty())
            problem = pictureProblem;
    }
    return problem;
}

QString Tour::takePicture(const QString &file)
{
    constexpr int settlingTime = 5000; // ms, on a busy machine
    const QImage shown = m_driver.takeShownPicture();
    if (!shown.isNull())
        return savePicture(shown, file);

    QImage picture;
    QStringList problems;
    m_driver.waitFor(
        [&] {
            picture = m_driver.grab();
            problems = textsOf(layoutProblems(m_driver.window()) +
                               contrastProblems(m_driver.window(), picture));
            return problems.isEmpty() && m_driver.window()->isComplete();
        },
        settlingTime);
    const QString unwritten = savePicture(picture, file);
    return unwritten.isEmpty() ? problems.join(QStringLiteral("; ")) : unwritten;
}

QString Tour::savePicture(const QImage &image, const QString &file)
{
    QByteArray picture;
    QBuffer buffer(&picture);

    // Listed first: a picture that is not in the list could never be replaced.
    QFile list(m_folder.filePath(listName));
    QSaveFile target(m_folder.filePath(file));
    const bool written = image.save(&buffer, "png") && list.open(QIODevice::Append) &&
                         list.write(checksum(picture) + "  " + file.toUtf8() + '\n') > 0 &&
                         list.flush() && target.open(QIODevice::WriteOnly) &&
                         target.write(picture) == picture.size() && target.commit();
    return written ? QString() : QStringLiteral("%1 cannot be written").arg(target.fileName());
}

namespace {

struct Section
{
    QString name;
    TourSteps (*steps)(const ControlCenterWindow *);
};

const QVector<Section> &sections()
{
    static const QVector<Section> all = {
        {QStringLiteral("pages"), pageSteps},         //
        {QStringLiteral("icons"), iconSteps},         //
        {QStringLiteral("search"), searchSteps},      //
        {QStringLiteral("switches"), switchSteps},    //
        {QStringLiteral("choices"), choiceSteps},     //
        {QStringLiteral("shortcuts"), shortcutSteps}, //
        {QStringLiteral("services"), serviceSteps},   //
        {QStringLiteral("world"), worldSteps},        //
        {QStringLiteral("keyboard"), keyboardSteps},  //
        {QStringLiteral("looks"), lookSteps},         //
        {QStringLiteral("voice"), voiceSteps},
    };
    return all;
}

} // namespace

QStringList tourSections()
{
    QStringList names;
    for (const Section &section : sections())
        names.append(section.name);
    return names;
}

TourSteps tourSection(const QString &name, const ControlCenterWindow *window)
{
    for (const Section &section : sections())
        if (section.name == name)
            return section.steps(window);
    return {};
}

} // namespace controlcenter
