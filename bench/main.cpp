#include "base/Text.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    mosaro::base::installTexts();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
