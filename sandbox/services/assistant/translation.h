#pragma once

#include <QObject>

namespace sandbox {

class StateStore;

/**
 * Translation of selected text: contract com.corvane.aiassistant.trans.
 *
 * State: "trans.enabled" (bool), "trans.language" ("cn|en" or "en|cn").
 */
class Translation : public QObject
{
    Q_OBJECT

public:
    explicit Translation(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    bool getTransEnable() const;
    void setTransEnable(bool enabled);
    QString getTransLanguage() const;
    void setTransLanguage(const QString &language);

private:
    StateStore *m_state;
};

} // namespace sandbox
