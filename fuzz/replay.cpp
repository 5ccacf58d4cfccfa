// Runs a fuzz target over the files of folders: what is known to be worth trying, in every build and without
// libFuzzer.
#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void run(const QByteArray& content)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(content.constData()), static_cast<size_t>(content.size()));
}

/// False for a folder without files.
bool runFolder(const QString& path)
{
    const QFileInfoList files = QDir(path).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            return false;
        std::printf("%s\n", qPrintable(info.filePath())); // the last line tells which input it was
        std::fflush(stdout);
        run(file.readAll());
    }
    return !files.isEmpty();
}

} // namespace

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    run({});
    bool haveAllRun = argc > 1;
    for (int i = 1; i < argc; ++i)
        haveAllRun = runFolder(QFile::decodeName(argv[i])) && haveAllRun;
    return haveAllRun ? 0 : 1;
}
