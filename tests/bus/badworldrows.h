#pragma once

#include "doctor/failures.h"

#include <QMetaType>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

// What a person does with the module while a service, its answers or its signals are bad. What is
// to come of it stands in doctor/failures.cpp, of which docs/failures.md is written.

namespace badworlds {

/** A call or signal, and the line of the page that tells what became of it. */
struct Subject
{
    doctor::ObjectUse object;
    doctor::MemberUse use;
    QString service;     ///< Of the sandbox: "assistant", "dock"...
    QVariantList answer; ///< The true one, or what the signal carries.
    QString usual;       ///< The line when all is well.
    QString failed;      ///< When there is no answer.
    QString senseless;   ///< When its value means nothing.
};

/** With what the table says of it. */
Subject subjectOf(const Contract::Method &method);
/** One whose answer the page shows. */
Subject shown(const Contract::Method &method, const char *service, const QVariant &answer,
              const QString &usual, const QString &failed, const QString &senseless);
/** One of which the page shows what the person did, whatever becomes of it. */
Subject sent(const Contract::Method &method, const char *service, const QString &line,
             const QVariantList &answer = {});
/** A signal with one value or none. */
Subject heard(const Contract::Signal &signal, const char *service, const QVariantList &value,
              const QString &usual, const QString &failed, const QString &senseless);

/** What comes of an action. */
struct Result
{
    QString line;      ///< Of the page; empty: as the subjects say.
    QStringList calls; ///< On the wire: "getIatEnable()".
};

/** What a person does, and everything that it is about. */
struct Action
{
    const char *name;
    std::function<std::unique_ptr<QWidget>()> open; ///< The page.
    std::function<void(QWidget *)> act; ///< On the open page; none: to open it is what is tried.
    std::function<Result(const Subject &, doctor::World)> result; ///< In a bad world.
    std::vector<Subject> subjects;      ///< In the order in which they are called.
    std::function<QString()> tell = {}; ///< One more line, beside the page.
};

/** Everything that assistive technologies read on @p page, a line each: "Language: English". */
QStringList readOut(QWidget *page);

/** What comes in @p world in place of @p values. */
QVariantList valuesIn(doctor::World world, const doctor::MemberUse &use,
                      const QVariantList &values);

/** Rows for a test: every subject of every action in each of @p worlds that it can meet. */
void addRows(const std::vector<Action> &actions, const QVector<doctor::World> &worlds);

/** The patient worlds, and those that last as long as the bus waits. */
QVector<doctor::World> shortWorlds();
QVector<doctor::World> endlessWorlds();

} // namespace badworlds

Q_DECLARE_METATYPE(badworlds::Action)
Q_DECLARE_METATYPE(doctor::World)
