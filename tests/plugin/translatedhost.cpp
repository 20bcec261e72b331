// A host that loads the module and writes on standard output, as JSON, every text that the module
// shows or registers: {"name": ..., "pageNames": [[name, translated]], "search": [[page, item or
// ""]], "widgets": {class: [texts]}}.
//
// The module reads its catalogue from a fixed folder of the system. The function below stands in
// for QtCore's, since the loader finds an exported symbol of the program first, and reads the file
// of the same name that this build has made.

#include <zcc/frameproxyinterface.h>
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
#include <QPointer>
#include <QTranslator>

#include <cstdio>

bool QTranslator::load(const QString &fileName, const QString &, const QString &, const QString &)
{
    static QList<QByteArray> catalogues; // a translator keeps no copy of what it is given
    const QString asked = QStringLiteral("/usr/share/TavrenAIAssistant/translations/");
    if (!fileName.startsWith(asked))
        return false;
    QFile file(QStringLiteral(CATALOGUES "/") + fileName.mid(asked.size()));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    catalogues.append(file.readAll());
    return load(reinterpret_cast<const uchar *>(catalogues.last().constData()),
                catalogues.last().size(), QStringLiteral(CATALOGUES));
}

namespace {

QJsonArray texts(const QWidget &widget)
{
    QJsonArray result;
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
            if (!text.isEmpty() && !result.contains(text))
                result.append(text);
    }
    return result;
}

class Frame final : public zccV20::FrameProxyInterface
{
public:
    ~Frame()
    {
        for (const auto &widget : qAsConst(m_pushed))
            delete widget;
    }

    void pushWidget(zccV20::ModuleInterface *, QWidget *widget, PushType) override
    {
        m_pushed.append(widget);
        m_page = widget;
        note();
    }
    void addPageTranslation(const QString &page, const QString &translated) override
    {
        m_pageNames.append(QJsonArray{page, translated});
    }
    void addSearchModule(const QString &module, const QString &page, bool) override
    {
        m_search.append(QJsonArray{module, page, QString()});
    }
    void addSearchItem(const QString &module, const QString &page, const QString &item,
                       bool) override
    {
        m_search.append(QJsonArray{module, page, item});
    }

    /// Adds the texts that the page now shows to those of its class.
    void note()
    {
        const QString name = QString::fromLatin1(m_page->metaObject()->className());
        QJsonArray known = m_widgets.value(name).toArray();
        const QJsonArray shown = texts(*m_page);
        for (const auto &text : shown)
            if (!known.contains(text))
                known.append(text);
        m_widgets.insert(name, known);
    }

    QWidget *page() const { return m_page; }
    QJsonObject result(const QString &moduleName) const
    {
        return {{QStringLiteral("name"), moduleName},
                {QStringLiteral("pageNames"), m_pageNames},
                {QStringLiteral("search"), m_search},
                {QStringLiteral("widgets"), m_widgets}};
    }

    QStringList pageNames() const
    {
        QStringList names;
        for (const QJsonValue &page : m_pageNames)
            names.append(page.toArray().at(0).toString());
        return names;
    }

private:
    QList<QPointer<QWidget>> m_pushed;
    QPointer<QWidget> m_page;
    QJsonArray m_pageNames;
    QJsonArray m_search;
    QJsonObject m_widgets;
};

/// What the assistant page shows later: the tip of the one-shot mode, and the results of the voice
/// test that need no microphone, one per code and the missing network.
void walkAssistantPage(Frame &frame)
{
    QMetaObject::invokeMethod(frame.page(), "slotOneShotMode", Q_ARG(int, Qt::Checked));
    frame.note();
    for (const auto *code : {"1003", "1004", "1005", "1008"}) {
        QMetaObject::invokeMethod(frame.page(), "slotAqcResult",
                                  Q_ARG(QString, QString::fromLatin1(code)));
        frame.note();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (auto *button : frame.page()->findChildren<QAbstractButton *>())
        if (button->inherits("Ztk::Widget::ZCommandLinkButton"))
            QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
    QCoreApplication::processEvents();
    frame.note();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QPluginLoader loader(QStringLiteral(MODULE_FILE));
    auto *module = qobject_cast<zccV20::ModuleInterface *>(loader.instance());
    if (!module) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    Frame frame;
    module->setFrameProxy(&frame);
    module->preInitialize();
    module->initialize();
    module->active();
    walkAssistantPage(frame);
    for (const QString &page : frame.pageNames())
        module->load(page);

    std::puts(QJsonDocument(frame.result(module->displayName())).toJson().constData());
    return 0;
}
