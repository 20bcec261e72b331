#pragma once

#include <zcc/frameproxyinterface.h>
#include <zcc/moduleinterface.h>

#include <QIcon>
#include <QLabel>
#include <QPointer>
#include <QStringList>
#include <QVector>

#include <functional>

namespace testsupport {

/** A module that writes down how it is driven and pushes labels. */
class ScriptedModule : public zccV20::ModuleInterface
{
public:
    QStringList calls;
    std::function<void()> whileActivating; ///< runs between the push of the list and of the page

    void push(zccV20::FrameProxyInterface::PushType type = zccV20::FrameProxyInterface::NextColumn)
    {
        auto *label = new QLabel(QStringLiteral("pushed"));
        pushed.append(label);
        m_frameProxy->pushWidget(this, label, type);
    }

    QVector<QPointer<QWidget>> pushed;

    void preInitialize(bool, zccV20::FrameProxyInterface::PushType) override
    {
        calls << (m_frameProxy ? QStringLiteral("preInitialize") : QStringLiteral("no frame"));
        addChildPageTrans();
        initSearchData();
    }
    void initialize() override { calls << QStringLiteral("initialize"); }
    void reset() override { calls << QStringLiteral("reset"); }
    QString name() const override { return QStringLiteral("scripted"); }
    QString displayName() const override { return QStringLiteral("Scripted"); }
    QIcon icon() const override { return QIcon::fromTheme(QStringLiteral("zcc_edit")); }
    QString translationPath() const override { return QString(); }
    void contentPopped(QWidget *) override { calls << QStringLiteral("contentPopped"); }
    void active() override
    {
        calls << QStringLiteral("active");
        push();
        if (whileActivating)
            whileActivating();
        push();
    }
    void deactive() override { calls << QStringLiteral("deactive"); }
    int load(const QString &path) override
    {
        calls << QStringLiteral("load ") + path;
        push();
        return 0;
    }
    QStringList availPage() const override { return {}; }
    QString path() const override { return QString(); }
    QString follow() const override { return QString(); }
    void addChildPageTrans() const override
    {
        m_frameProxy->addPageTranslation(QStringLiteral("Page"), QStringLiteral("Seite"));
    }
    void initSearchData() override
    {
        m_frameProxy->addSearchModule(displayName(), QStringLiteral("Seite"), true);
        m_frameProxy->addSearchItem(displayName(), QStringLiteral("Seite"), QStringLiteral("Ding"),
                                    true);
    }
};

} // namespace testsupport
