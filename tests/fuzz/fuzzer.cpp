// libFuzzer's side: "fuzz TARGET", with libFuzzer's own arguments behind it.

#include "tests/fuzz/target.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

static fuzz::Target chosen = nullptr;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    chosen = fuzz::targets().value(*argc > 1 ? (*argv)[1] : "");
    if (!chosen) {
        std::fprintf(stderr, "The targets are: %s\n", fuzz::targets().keys().join(' ').constData());
        std::exit(2);
    }
    std::rotate(*argv + 1, *argv + 2, *argv + *argc);
    --*argc;

    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never deleted: libFuzzer ends by exit(), and Qt's own statics go before ours.
    static int count = 1; // the arguments are libFuzzer's
    static const auto *application = new QApplication(count, *argv);
    Q_UNUSED(application)
    fuzz::prepare();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    chosen(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
