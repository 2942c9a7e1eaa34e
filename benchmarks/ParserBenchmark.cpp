// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadOutput.h"

#include <QFile>

#include <benchmark/benchmark.h>

namespace {

QByteArray recordedOutput;

/// Recorded output of the real tool, in pieces as a pipe delivers them.
void parseRecordedOutput(benchmark::State &state)
{
    constexpr qsizetype piece = 4096;
    int reports = 0;
    for (auto _ : state) {
        DownloadOutput output([&](double, const QString &, const QString &) { ++reports; },
                              [&] { ++reports; });
        for (qsizetype at = 0; at < recordedOutput.size(); at += piece)
            output.append(recordedOutput.mid(at, piece));
        benchmark::DoNotOptimize(output.savedPath());
    }
    state.SetItemsProcessed(state.iterations() * recordedOutput.count('\n'));
}

/// What any reader must do at the least: cut the lines and decode them.
void cutRecordedOutput(benchmark::State &state)
{
    for (auto _ : state) {
        LineBuffer lines;
        lines.append(recordedOutput);
        while (const auto line = lines.takeLine())
            benchmark::DoNotOptimize(QString::fromUtf8(*line));
    }
    state.SetItemsProcessed(state.iterations() * recordedOutput.count('\n'));
}

BENCHMARK(cutRecordedOutput);
BENCHMARK(parseRecordedOutput);

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The recorded output is the argument");
    recordedOutput = file.readAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
