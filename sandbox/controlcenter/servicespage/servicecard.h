#pragma once

#include <QMap>
#include <QWidget>

class QLabel;

namespace zcc {
namespace widgets {
class SettingsGroup;
}
} // namespace zcc

namespace controlcenter {

class ServiceWatch;

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
    void showValue(const QString &key, const QString &text);
    QLabel *addRow(const QString &key);
    void updateColors();

    ServiceWatch *m_watch;
    QLabel *m_state;
    zcc::widgets::SettingsGroup *m_group;
    QMap<QString, QLabel *> m_values; ///< by key
};

} // namespace controlcenter
