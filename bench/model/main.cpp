#include "localization/Localization.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    const QCoreApplication application(argc, argv);
    palomet::Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {QStringLiteral("en")});
    benchmark::RunSpecifiedBenchmarks();
}
