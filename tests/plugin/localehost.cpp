// A host that loads the module and writes on standard output, as JSON, what the module did about
// its translator: {"translator": ["load FILE|FOLDER|DELIMITERS|SUFFIX", "install EMPTY|FILLED"]}.
//
// The module reads its catalogue from a fixed folder of the system. With another folder as its
// argument, the host lets it read the file of the same name there, opens every page and adds every
// text that the module shows or registers: "name", "pageNames": [[name, translated]], "search":
// [[module, page, item or empty]], "widgets": {class: [texts]}.
//
// The two functions below stand in for QtCore's: the loader finds an exported symbol of the program
// first. A member function's "this" is the first argument in the platform's calling convention.

#include "tests/plugin/hostedmodule.h"
#include "tests/support/fakeframe.h"
#include "tests/support/modulepages.h"
#include "tests/support/widgets.h"

#include <zcc/moduleinterface.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPluginLoader>
#include <QTranslator>

#include <dlfcn.h>

#include <cstdio>

using namespace testsupport;

#define INTERPOSED(symbol) __asm__(symbol) __attribute__((visibility("default")))
#define TRANSLATOR_LOAD "_ZN11QTranslator4loadERK7QStringS2_S2_S2_"
#define INSTALL_TRANSLATOR "_ZN16QCoreApplication17installTranslatorEP11QTranslator"

bool interposedLoad(QTranslator *self, const QString &file, const QString &folder,
                    const QString &delimiters, const QString &suffix) INTERPOSED(TRANSLATOR_LOAD);
bool interposedInstall(QTranslator *translator) INTERPOSED(INSTALL_TRANSLATOR);

namespace {

QString catalogues; // the folder of the argument
QJsonObject told;

void append(const QString &key, const QJsonValue &value)
{
    QJsonArray values = told.value(key).toArray();
    values.append(value);
    told.insert(key, values);
}

bool loadFromArgument(QTranslator *translator, const QString &asked)
{
    static QList<QByteArray> contents; // a translator keeps no copy of what it is given
    const QString folder = QStringLiteral("/usr/share/TavrenAIAssistant/translations/");
    QFile file(catalogues + QLatin1Char('/') + asked.mid(folder.size()));
    if (!asked.startsWith(folder) || !file.open(QIODevice::ReadOnly))
        return false;
    contents.append(file.readAll());
    return translator->load(reinterpret_cast<const uchar *>(contents.last().constData()),
                            contents.last().size(), catalogues);
}

} // namespace

bool interposedLoad(QTranslator *self, const QString &file, const QString &folder,
                    const QString &delimiters, const QString &suffix)
{
    append(QStringLiteral("translator"),
           QStringLiteral("load ") +
               QStringList{file, folder, delimiters, suffix}.join(QLatin1Char('|')));
    if (!catalogues.isEmpty())
        return loadFromArgument(self, file);
    const auto real =
        reinterpret_cast<decltype(&interposedLoad)>(dlsym(RTLD_NEXT, TRANSLATOR_LOAD));
    return real(self, file, folder, delimiters, suffix);
}

bool interposedInstall(QTranslator *translator)
{
    append(QStringLiteral("translator"),
           QStringLiteral("install %1%2")
               .arg(QLatin1String(translator->isEmpty() ? "EMPTY" : "FILLED"),
                    QLatin1String(translator->parent() ? ", owned" : "")));
    const auto real =
        reinterpret_cast<decltype(&interposedInstall)>(dlsym(RTLD_NEXT, INSTALL_TRANSLATOR));
    return real(translator);
}

namespace {

QJsonArray texts(const QWidget &widget)
{
    QJsonArray all;
    QList<const QWidget *> widgets{&widget};
    for (const QWidget *child : widget.findChildren<QWidget *>())
        widgets.append(child);
    for (const QWidget *each : qAsConst(widgets)) {
        QStringList found{each->accessibleName(), each->accessibleDescription(), each->toolTip()};
        if (const auto *label = qobject_cast<const QLabel *>(each))
            found.append(label->text());
        if (const auto *button = qobject_cast<const QAbstractButton *>(each))
            found.append(button->text());
        if (const auto *comboBox = qobject_cast<const QComboBox *>(each)) {
            for (int i = 0; i < comboBox->count(); ++i)
                found.append(comboBox->itemText(i));
        } else if (const auto *view = qobject_cast<const QAbstractItemView *>(each)) {
            const QAbstractItemModel *model = view->model();
            for (int i = 0; model && i < model->rowCount(); ++i)
                found.append(model->index(i, 0).data().toString());
        }
        for (const QString &text : qAsConst(found))
            if (!text.isEmpty() && !all.contains(text))
                all.append(text);
    }
    return all;
}

/** Adds the texts that the latest pushed widget now shows to those of its class. */
void note(const FakeFrame &frame, int push = -1)
{
    const FakeFrame::Push pushed = push < 0 ? frame.pushes().constLast() : frame.pushes().at(push);
    QJsonObject widgets = told.value(QStringLiteral("widgets")).toObject();
    QJsonArray known = widgets.value(pushed.className).toArray();
    const QJsonArray shown = texts(*pushed.widget);
    for (const auto &text : shown)
        if (!known.contains(text))
            known.append(text);
    widgets.insert(pushed.className, known);
    told.insert(QStringLiteral("widgets"), widgets);
}

void noteRegistrations(const FakeFrame &frame)
{
    for (const FakeFrame::Registration &entry : frame.registrations()) {
        QStringList parts = entry.texts;
        if (entry.kind == FakeFrame::Registration::SearchModule)
            parts.append(QString());
        append(entry.kind == FakeFrame::Registration::PageTranslation ? QStringLiteral("pageNames")
                                                                      : QStringLiteral("search"),
               QJsonArray::fromStringList(parts));
    }
}

/**
 * What the assistant page shows later: the tip of the one-shot mode, and the results of the voice
 * test that need no microphone, one per code and the missing network.
 */
void walkAssistantPage(const FakeFrame &frame)
{
    QWidget *page = frame.page();
    QMetaObject::invokeMethod(page, "slotOneShotMode", Q_ARG(int, Qt::Checked));
    note(frame);
    for (const auto *code : {"1003", "1004", "1005", "1008"}) {
        QMetaObject::invokeMethod(page, "slotAqcResult", Q_ARG(QString, QString::fromLatin1(code)));
        note(frame);
    }
    flushDeferredDeletes();
    for (auto *button : page->findChildren<QAbstractButton *>())
        if (button->inherits("Ztk::Widget::ZCommandLinkButton"))
            QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
    QCoreApplication::processEvents();
    note(frame);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    catalogues = QApplication::arguments().value(1);
    QPluginLoader loader(testsupport::moduleFile());
    auto *module = qobject_cast<zccV20::ModuleInterface *>(loader.instance());
    if (!module) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    FakeFrame frame(FakeFrame::OnDemand);
    if (!catalogues.isEmpty()) {
        module->setFrameProxy(&frame);
        module->preInitialize();
        module->initialize();
        noteRegistrations(frame);
        module->active();
        note(frame, 0); // the list
        note(frame);
        walkAssistantPage(frame);
        for (const ModulePage &page : featurePages()) {
            module->load(page.name);
            note(frame);
        }
        told.insert(QStringLiteral("name"), module->displayName());
    }
    std::puts(QJsonDocument(told).toJson().constData());
    return 0;
}
