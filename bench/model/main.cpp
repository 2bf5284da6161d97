#include "localization/Localization.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    const QCoreApplication application(argc, argv);
    palomet::localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {u"en"_s});
    benchmark::RunSpecifiedBenchmarks();
}
