#pragma once

#include <QString>
#include <QVector>

namespace doctor {

/** A method or a signal of an interface. */
struct Member
{
    QString name;
    bool isSignal = false;
    QString arguments;   ///< D-Bus signature of what is sent: "" without any.
    QString reply;       ///< D-Bus signature of a method's reply.
    QString declaration; ///< As people read it: "setIatEnable(b enabled)".
    QString description; ///< From the comment before it; empty without one.

    /** The same name in the same role. */
    bool isNamesake(const Member &other) const
    {
        return name == other.name && isSignal == other.isSignal;
    }
};

/** What an introspection says of one interface. */
struct InterfaceDescription
{
    QString name;
    QVector<Member> members;
};

/** Every interface in an introspection's @p xml; none when it cannot be read. */
QVector<InterfaceDescription> describedInterfaces(const QString &xml);

/** The contract of @p interface, which is one of those that the module uses. */
InterfaceDescription contractOf(const QString &interface);

} // namespace doctor
