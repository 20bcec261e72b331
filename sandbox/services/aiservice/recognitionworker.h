#pragma once

#include "sandbox/services/aiservice/hypothesis.h"
#include "sandbox/services/aiservice/pcmreader.h"
#include "sandbox/services/aiservice/phraselistener.h"

#include <QObject>

#include <memory>

namespace sandbox {

/** The side of a Recognition that lives on its thread and does the listening. */
class RecognitionWorker : public QObject
{
    Q_OBJECT

public:
    RecognitionWorker(const QString &modelFolder, const PhraseListener::Patience &patience);
    ~RecognitionWorker() override;

    /** Loads the models; called once, before the others. */
    void start();
    /** Returns at once when the thread is asked to end. */
    void hear(const QByteArray &audio);
    void finish();

Q_SIGNALS:
    void heard(const sandbox::Hypothesis &hypothesis);
    void failed();

private:
    void tell(const QVector<Hypothesis> &news);

    const QString m_modelFolder;
    const PhraseListener::Patience m_patience;
    PcmReader m_reader;
    std::unique_ptr<PhraseListener> m_listener; // null until start(), and when there are no models
};

} // namespace sandbox
