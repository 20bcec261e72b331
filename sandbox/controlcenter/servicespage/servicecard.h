#pragma once

#include <QVector>
#include <QWidget>

class QLabel;

namespace zcc {
namespace widgets {
class SettingsGroup;
}
} // namespace zcc

namespace controlcenter {

class ServiceWatch;
class StateIcon;

/** One service on the page of services: its name, whether it runs, and its values. */
class ServiceCard : public QWidget
{
    Q_OBJECT

public:
    /** Shows @p watch, which outlives the card, under the heading @p title. */
    ServiceCard(const QString &title, ServiceWatch *watch, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showState();
    void showValues();
    void addRow();
    void updateColors();

    struct Row
    {
        QWidget *item;
        QLabel *key;
        QLabel *value;
    };

    ServiceWatch *m_watch;
    StateIcon *m_icon;
    QLabel *m_state;
    QLabel *m_busName;
    zcc::widgets::SettingsGroup *m_group;
    QVector<Row> m_rows; ///< as many as were ever needed; those behind the values are hidden
};

} // namespace controlcenter
