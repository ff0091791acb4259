// Between libFuzzer and the one target that a fuzzing program is linked with.
#include "FuzzInput.h"

#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

int LLVMFuzzerInitialize(int*, char***)
{
    // Warnings of wrong offsets would fill the report and cost half of the time.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    });
    return 0;
}

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    // A copy of its own, so that a look behind its end is noticed.
    mosaro::fuzz::targets().front()->run(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
