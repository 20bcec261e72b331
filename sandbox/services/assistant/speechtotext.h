#pragma once

#include <QObject>

namespace sandbox {

class StateStore;

/**
 * Speech to text: contract com.corvane.aiassistant.iat.
 *
 * State: "iat.enabled" (bool), "iat.language" ("zh_cn" or "en_us").
 */
class SpeechToText : public QObject
{
    Q_OBJECT

public:
    explicit SpeechToText(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    bool getIatEnable() const;
    void setIatEnable(bool enabled);
    QString getIatLanguage() const;
    void setIatLanguage(const QString &language);

private:
    StateStore *m_state;
};

} // namespace sandbox
