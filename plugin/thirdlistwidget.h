#pragma once

#include <QWidget>

class AssistZListView;
class QModelIndex;
class QStandardItemModel;

/**
 * The module's navigation list: one row per page, and one signal per row.
 *
 * Made without a parent and handed to the frame, which owns it. A receiver of a signal may delete
 * it: pages process events while they are built, in which the frame may give the list up.
 */
class ThirdListWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ThirdListWidget(QWidget *parent = nullptr);
    ~ThirdListWidget() override;

    /** Builds list and model; called once, by the constructor. */
    void init();

    /** Emits the signal of the row of @p index; an invalid index is the first row's. */
    void onItemClieck(const QModelIndex &index);

    /** Makes @p row current and opens its page. A row without a page leaves no row current. */
    void updateListViewIndex(int row);

Q_SIGNALS:
    void signalShowAIAssistant();
    void signalShowVoiceIat();
    void signalShowVoiceTTS();
    void signalShowTranslate();

private:
    void requestPage(int row);

    AssistZListView *m_listView = nullptr;
    QStandardItemModel *m_model = nullptr;
};
