// A host that loads the module and tells on standard output what the module did about translations:
// "load FILE|DIRECTORY|DELIMITERS|SUFFIX" for each catalogue that it asked for and
// "install EMPTY|FILLED" for each translator that it installed, and whether somebody owns it.
//
// The two functions below stand in for QtCore's: the loader finds an exported symbol of the program
// first. They write down what they are called with and pass it on. A member function's "this" is
// the first argument in the platform's calling convention.

#include <QApplication>
#include <QPluginLoader>
#include <QTranslator>

#include <dlfcn.h>

#include <cstdio>

#define INTERPOSED(symbol) __asm__(symbol) __attribute__((visibility("default")))
#define TRANSLATOR_LOAD "_ZN11QTranslator4loadERK7QStringS2_S2_S2_"
#define INSTALL_TRANSLATOR "_ZN16QCoreApplication17installTranslatorEP11QTranslator"

bool interposedLoad(QTranslator *self, const QString &file, const QString &directory,
                    const QString &delimiters, const QString &suffix) INTERPOSED(TRANSLATOR_LOAD);
bool interposedInstall(QTranslator *translator) INTERPOSED(INSTALL_TRANSLATOR);

bool interposedLoad(QTranslator *self, const QString &file, const QString &directory,
                    const QString &delimiters, const QString &suffix)
{
    std::printf("load %s|%s|%s|%s\n", qPrintable(file), qPrintable(directory),
                qPrintable(delimiters), qPrintable(suffix));
    const auto real =
        reinterpret_cast<decltype(&interposedLoad)>(dlsym(RTLD_NEXT, TRANSLATOR_LOAD));
    return real(self, file, directory, delimiters, suffix);
}

bool interposedInstall(QTranslator *translator)
{
    std::printf("install %s%s\n", translator->isEmpty() ? "EMPTY" : "FILLED",
                translator->parent() ? ", owned" : "");
    const auto real =
        reinterpret_cast<decltype(&interposedInstall)>(dlsym(RTLD_NEXT, INSTALL_TRANSLATOR));
    return real(translator);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QPluginLoader loader(QStringLiteral(MODULE_FILE));
    if (!loader.instance()) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    return 0;
}
