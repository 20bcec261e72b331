#include "tests/gui/shownwindow.h"

#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/layoutcheck.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "tests/support/widgets.h"

#include <ztk/zapplicationsetup.h>

#include <QApplication>
#include <QDebug>
#include <QFontDatabase>
#include <QtTest>

using controlcenter::ControlCenterWindow;
using controlcenter::LoadedModule;

namespace testsupport {
namespace {

/** Every text half as long again, short ones twice as long, with long words: as in German. */
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "QGuiApplication") == 0)
            return QString(); // Qt reads the direction of the layout there
        static const QStringList words = {QStringLiteral("Spracherkennung"), QStringLiteral("und"),
                                          QStringLiteral("Tastenkombination"),
                                          QStringLiteral("mit"),
                                          QStringLiteral("Systemeinstellungen")};
        QString text = QString::fromUtf8(source);
        const int wanted = text.size() * (text.size() < 20 ? 2.0 : 1.5);
        for (int i = 0; text.size() < wanted; ++i)
            text += QLatin1Char(' ') + words.at(i % words.size());
        return text;
    }
};

// Without the country, but where that tells scripts apart.
QString languageOf(const QString &locale)
{
    return locale.startsWith(QLatin1String("zh")) ? locale : locale.section(QLatin1Char('_'), 0, 0);
}

// The files with the texts of that language; English ones of the window are its sources.
QStringList catalogues(const QString &language)
{
    const QString folder = QStringLiteral(CATALOGUES "/");
    if (language == QLatin1String("en"))
        return {folder + QStringLiteral("aassistant-control-plugin_en.qm")};
    return {folder + QStringLiteral("assistant-control-plugin_%1.qm").arg(language),
            QStringLiteral(":/control-center/control-center_%1.qm").arg(language)};
}

} // namespace

bool ShownWindow::start()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network, &m_ai})
        if (!service->start())
            return false;
    m_network.setValue(QStringLiteral("state"), 70u);
    if (!m_home.writeWakeupSettings("[base]\nenable=true\nenableOneshot=true\n"))
        return false;
    Ztk::Widget::ZApplicationSetup::install();
    const LoadedModule loaded = controlcenter::loadModule(QStringLiteral(MODULE_FILE));
    if (!loaded.module)
        qWarning() << loaded.error;
    m_module = loaded.module;
    return m_module;
}

bool ShownWindow::useLocale(const QString &locale, double textSize)
{
    const QString language = languageOf(locale);
    if (locale == QLatin1String("long"))
        m_translators.emplace_back(new LongTexts);
    else
        for (const QString &file : catalogues(language)) {
            m_translators.emplace_back(new QTranslator);
            if (!m_translators.back()->load(file))
                return false;
        }
    for (const auto &translator : m_translators)
        if (!QCoreApplication::installTranslator(translator.get()))
            return false;
    QGuiApplication::setLayoutDirection(language == QLatin1String("ug") ? Qt::RightToLeft
                                                                        : Qt::LeftToRight);
    QFont font(controlcenter::fontFamily(QLocale(locale).language()));
    font.setPointSizeF(textSize);
    QApplication::setFont(font);
    return QFontDatabase().hasFamily(font.family());
}

bool ShownWindow::open(const QSize &size)
{
    m_window = std::make_unique<ControlCenterWindow>(m_module);
    m_window->resize(size);
    m_window->show();
    m_window->activateWindow();
    m_window->openModule();
    return QTest::qWaitForWindowActive(m_window.get());
}

void ShownWindow::close()
{
    m_window.reset();
    flushDeferredDeletes();
    m_translators.clear();
}

void ShownWindow::settle()
{
    flushDeferredDeletes();
    QCoreApplication::processEvents();
}

QString ShownWindow::layoutProblems(const QString &where) const
{
    constexpr int settled = 5000; // ms, in which layouts must have settled
    QStringList found;
    const bool well = QTest::qWaitFor(
        [&] {
            flushDeferredDeletes();
            found = textsOf(controlcenter::layoutProblems(m_window.get()));
            if (!m_window->isComplete())
                found.append(QStringLiteral("the services are not known yet"));
            return found.isEmpty();
        },
        settled);
    return well ? QString()
                : where + QStringLiteral(":\n  ") + found.join(QStringLiteral("\n  ")) + '\n';
}

} // namespace testsupport
