// bus-recorder session|system: becomes a monitor of that bus, prints "ready", then every message as
// one line of JSON, until the bus goes away.

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <dbus/dbus.h>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

QJsonValue jsonValue(DBusMessageIter *iterator);

QJsonArray jsonElements(DBusMessageIter *iterator)
{
    QJsonArray elements;
    while (dbus_message_iter_get_arg_type(iterator) != DBUS_TYPE_INVALID) {
        elements.append(jsonValue(iterator));
        dbus_message_iter_next(iterator);
    }
    return elements;
}

QJsonObject jsonBytes(DBusMessageIter *elements)
{
    const char *bytes = nullptr;
    int length = 0;
    dbus_message_iter_get_fixed_array(elements, &bytes, &length);
    return {{QStringLiteral("base64"),
             QString::fromLatin1(QByteArray::fromRawData(bytes, length).toBase64())}};
}

QJsonObject jsonMap(DBusMessageIter *entries)
{
    QJsonObject map;
    while (dbus_message_iter_get_arg_type(entries) == DBUS_TYPE_DICT_ENTRY) {
        DBusMessageIter entry;
        dbus_message_iter_recurse(entries, &entry);
        const QString key = jsonValue(&entry).toVariant().toString();
        dbus_message_iter_next(&entry);
        map.insert(key, jsonValue(&entry));
        dbus_message_iter_next(entries);
    }
    return map;
}

QJsonValue jsonArray(DBusMessageIter *iterator)
{
    DBusMessageIter elements;
    dbus_message_iter_recurse(iterator, &elements);
    switch (dbus_message_iter_get_element_type(iterator)) {
    case DBUS_TYPE_BYTE:
        return jsonBytes(&elements);
    case DBUS_TYPE_DICT_ENTRY:
        return jsonMap(&elements);
    default:
        return jsonElements(&elements);
    }
}

QJsonValue jsonBasic(DBusMessageIter *iterator, int type)
{
    DBusBasicValue value;
    dbus_message_iter_get_basic(iterator, &value);
    switch (type) {
    case DBUS_TYPE_BYTE:
        return value.byt;
    case DBUS_TYPE_BOOLEAN:
        return value.bool_val != FALSE;
    case DBUS_TYPE_INT16:
        return value.i16;
    case DBUS_TYPE_UINT16:
        return value.u16;
    case DBUS_TYPE_INT32:
        return value.i32;
    case DBUS_TYPE_UINT32:
        return double(value.u32);
    case DBUS_TYPE_INT64: // a JSON number holds 53 bits
        return QString::number(value.i64);
    case DBUS_TYPE_UINT64:
        return QString::number(value.u64);
    case DBUS_TYPE_DOUBLE:
        return value.dbl;
    default:
        return QString::fromUtf8(value.str);
    }
}

QJsonValue jsonValue(DBusMessageIter *iterator)
{
    const int type = dbus_message_iter_get_arg_type(iterator);
    DBusMessageIter inner;
    switch (type) {
    case DBUS_TYPE_ARRAY:
        return jsonArray(iterator);
    case DBUS_TYPE_STRUCT:
        dbus_message_iter_recurse(iterator, &inner);
        return jsonElements(&inner);
    case DBUS_TYPE_VARIANT:
        dbus_message_iter_recurse(iterator, &inner);
        return jsonValue(&inner);
    case DBUS_TYPE_UNIX_FD: // reading it would open a copy
        return QJsonValue();
    default:
        return jsonBasic(iterator, type);
    }
}

QJsonObject describe(DBusMessage *message)
{
    DBusMessageIter arguments;
    dbus_message_iter_init(message, &arguments);
    return {
        {QStringLiteral("type"), dbus_message_type_to_string(dbus_message_get_type(message))},
        {QStringLiteral("replyExpected"), dbus_message_get_no_reply(message) == FALSE},
        {QStringLiteral("autoStart"), dbus_message_get_auto_start(message) != FALSE},
        {QStringLiteral("serial"), double(dbus_message_get_serial(message))},
        {QStringLiteral("replySerial"), double(dbus_message_get_reply_serial(message))},
        {QStringLiteral("sender"), dbus_message_get_sender(message)},
        {QStringLiteral("destination"), dbus_message_get_destination(message)},
        {QStringLiteral("path"), dbus_message_get_path(message)},
        {QStringLiteral("interface"), dbus_message_get_interface(message)},
        {QStringLiteral("member"), dbus_message_get_member(message)},
        {QStringLiteral("errorName"), dbus_message_get_error_name(message)},
        {QStringLiteral("signature"), dbus_message_get_signature(message)},
        {QStringLiteral("arguments"), jsonElements(&arguments)},
    };
}

void printLine(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

// Every message counts as handled: a monitor that let the library answer calls would be thrown off
// the bus.
DBusHandlerResult record(DBusConnection *, DBusMessage *message, void *)
{
    if (!dbus_message_is_signal(message, DBUS_INTERFACE_LOCAL, "Disconnected"))
        printLine(QJsonDocument(describe(message)).toJson(QJsonDocument::Compact));
    return DBUS_HANDLER_RESULT_HANDLED;
}

bool becomeMonitor(DBusConnection *connection, DBusError *error)
{
    const auto unref = [](DBusMessage *message) {
        dbus_message_unref(message);
    };
    const std::unique_ptr<DBusMessage, decltype(unref)> call(
        dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_MONITORING,
                                     "BecomeMonitor"),
        unref);
    const char **noRules = nullptr;
    dbus_uint32_t flags = 0;
    dbus_message_append_args(call.get(), DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &noRules, 0,
                             DBUS_TYPE_UINT32, &flags, DBUS_TYPE_INVALID);
    DBusMessage *reply = dbus_connection_send_with_reply_and_block(connection, call.get(),
                                                                   DBUS_TIMEOUT_USE_DEFAULT, error);
    if (!reply)
        return false;
    dbus_message_unref(reply);
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const bool system = argc == 2 && std::strcmp(argv[1], "system") == 0;
    if (!system && (argc != 2 || std::strcmp(argv[1], "session") != 0)) {
        std::fprintf(stderr, "usage: bus-recorder session|system\n");
        return 2;
    }
    DBusError error;
    dbus_error_init(&error);
    DBusConnection *connection =
        dbus_bus_get_private(system ? DBUS_BUS_SYSTEM : DBUS_BUS_SESSION, &error);
    if (!connection || !becomeMonitor(connection, &error)) {
        std::fprintf(stderr, "bus-recorder: %s\n", error.message);
        return 1;
    }
    dbus_connection_set_exit_on_disconnect(connection, FALSE);
    dbus_connection_set_route_peer_messages(connection, TRUE); // not even a ping is answered
    dbus_connection_add_filter(connection, record, nullptr, nullptr);
    printLine("ready");
    while (dbus_connection_read_write_dispatch(connection, -1)) {
    }
    dbus_connection_close(connection);
    dbus_connection_unref(connection);
    return 0;
}
