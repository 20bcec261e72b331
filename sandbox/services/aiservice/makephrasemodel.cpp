// Build-time tool: writes phrase.dict and phrase.arpa into the folder given.

#include "sandbox/services/aiservice/phrasemodel.h"

#include <QDir>
#include <QSaveFile>

#include <cstdio>

namespace {

bool write(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    return folder.mkpath(QStringLiteral(".")) &&
                   write(folder.filePath(QStringLiteral("phrase.dict")),
                         sandbox::phrasemodel::dictionary()) &&
                   write(folder.filePath(QStringLiteral("phrase.arpa")),
                         sandbox::phrasemodel::bigrams())
               ? 0
               : 1;
}
