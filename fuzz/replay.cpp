// Runs a fuzz target over the files of folders, what is known to be worth trying, and over seeded bytes, in every build
// and without libFuzzer.
#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>
#include <random>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void run(const QByteArray& content)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(content.constData()), static_cast<size_t>(content.size()));
}

/// The same inputs each time, a little beyond the corpus.
void runSeeded()
{
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        QByteArray bytes(static_cast<int>(random() % 600), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() & 0xff);
        std::printf("seeded input %d\n", i); // the last line tells which input it was
        std::fflush(stdout);
        run(bytes);
    }
}

/// False for a folder without files.
bool runFolder(const QString& path)
{
    const QFileInfoList files = QDir(path).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            return false;
        std::printf("%s\n", qPrintable(info.filePath()));
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
    runSeeded();
    bool haveAllRun = argc > 1;
    for (int i = 1; i < argc; ++i)
        haveAllRun = runFolder(QFile::decodeName(argv[i])) && haveAllRun;
    return haveAllRun ? 0 : 1;
}
