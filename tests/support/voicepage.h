#pragma once

#include "pages/assistantsettingwidget.h"
#include "tests/support/serviceprocess.h"
#include "voice/voiceanimationwidget.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <ztk/zcommandlinkbutton.h>

#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>

namespace testsupport {

/** An assistant page on the screen, ready for keys. */
class AssistantPage
{
public:
    AssistantPage()
        : m_page(new AssistantSettingWidget(nullptr))
    {
        m_page->resize(640, 600);
        m_page->show();
        m_page->activateWindow();
        if (!QTest::qWaitForWindowActive(m_page))
            QTest::qFail("the page does not become active", __FILE__, __LINE__);
    }
    ~AssistantPage() { delete m_page; }
    Q_DISABLE_COPY(AssistantPage)

    AssistantSettingWidget *operator->() const { return m_page; }
    AssistantSettingWidget *get() const { return m_page; }
    void destroy() { delete m_page; }

private:
    QPointer<AssistantSettingWidget> m_page;
};

/** The same, and its voice test panel as a user sees it. */
class VoicePage : public AssistantPage
{
public:
    static QString phrase()
    {
        return QStringLiteral("现在请说\"阿岚，帮我预约明天早上10点的视频会议\"");
    }
    static QString runLink() { return QStringLiteral("Click here to test"); }
    static QString againLink() { return QStringLiteral("Click here to test again"); }

    zcc::widgets::SettingsGroup *group() const
    {
        const auto groups = get()->findChildren<zcc::widgets::SettingsGroup *>(
            QString(), Qt::FindDirectChildrenOnly);
        return groups.last();
    }

    /** The panel: always the last row. */
    zcc::widgets::SettingsItem *panel() const { return group()->item(group()->itemCount() - 1); }

    QVBoxLayout *layout() const { return qobject_cast<QVBoxLayout *>(panel()->layout()); }

    QLabel *label(const QString &text) const
    {
        for (QLabel *candidate : panel()->findChildren<QLabel *>())
            if (candidate->text() == text && candidate->isVisible())
                return candidate;
        return nullptr;
    }

    QStringList texts() const
    {
        QStringList result;
        for (int i = 0; i < layout()->count(); ++i) {
            QWidget *widget = layout()->itemAt(i)->widget();
            if (auto *text = qobject_cast<QLabel *>(widget))
                result << text->text();
            else if (auto *link = qobject_cast<Ztk::Widget::ZCommandLinkButton *>(widget))
                result << link->text();
            else if (qobject_cast<VoiceAnimationWidget *>(widget))
                result << QStringLiteral("(wave)");
        }
        return result;
    }

    Ztk::Widget::ZCommandLinkButton *link() const
    {
        return panel()->findChild<Ztk::Widget::ZCommandLinkButton *>();
    }
    VoiceAnimationWidget *wave() const { return panel()->findChild<VoiceAnimationWidget *>(); }

    /** False when no link comes up. */
    [[nodiscard]] bool clickLink() const
    {
        if (!QTest::qWaitFor([this] { return link() && link()->isVisible(); }))
            return false;
        QTest::mouseClick(link(), Qt::LeftButton);
        return true;
    }

    void hear(const QString &words) const
    {
        QMetaObject::invokeMethod(get(), "slotIatResult", Q_ARG(QString, words), Q_ARG(int, 1),
                                  Q_ARG(bool, false));
    }

    void finish(const QString &result) const
    {
        QMetaObject::invokeMethod(get(), "slotAqcResult", Q_ARG(QString, result));
    }
};

/** The services that a voice test needs. */
struct VoiceTestServices
{
    ServiceProcess network{QStringLiteral("networkmanager")};
    ServiceProcess aiService{QStringLiteral("aiservice")};

    /** False, with a log line, when one does not start. */
    bool start() { return network.start() && aiService.start(); }

    /** The network is there, and nothing is scripted. */
    void reset()
    {
        network.setValue(QStringLiteral("state"), 70u);
        aiService.reset();
    }
};

} // namespace testsupport
