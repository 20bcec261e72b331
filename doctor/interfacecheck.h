#pragma once

#include "doctor/contractuse.h"
#include "doctor/finding.h"
#include "doctor/interfacedescription.h"

#include <QStringList>
#include <QVector>

namespace doctor {

class Questions;

/** An object of a service against its contract: what it says of itself, and what it answers. */
class InterfaceCheck
{
public:
    /** @p path is the object's, also where the service gives it. */
    InterfaceCheck(const ObjectUse &use, const QString &path);

    const ObjectUse &use() const { return *m_use; }

    /** Asks for a description, and whatever can be asked without changing anything. */
    void ask(Questions &questions);

    /** How long the slowest answer took, an error too; negative without any. */
    qint64 slowestAnswer(const Questions &questions) const;

    /** What the answers say. */
    QList<Finding> judge(const Questions &questions) const;

private:
    struct Asked
    {
        const MemberUse *member;
        QVariantList arguments;
        int number;
    };
    class Judgement;

    bool anyAnswer(const Questions &questions) const;

    const ObjectUse *m_use;
    QString m_path;
    int m_introspection = -1; // the number of the question
    QVector<Asked> m_asked;
};

} // namespace doctor
