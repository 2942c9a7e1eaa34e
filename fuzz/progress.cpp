// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadOutput.h"
#include "Fuzz.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// What a download's output leads to when it comes in pieces of these sizes, in turn.
QStringList told(const QByteArray &output, const QByteArray &sizes)
{
    QStringList events;
    DownloadOutput reader(
        [&events](double fraction, const QString &speed, const QString &eta) {
            expect(std::isfinite(fraction));
            events.append(QString::number(fraction) + u' ' + speed + u' ' + eta);
        },
        [&events] { events.append(u"processing"_s); });
    qsizetype at = 0;
    for (qsizetype piece = 0; at < output.size(); ++piece) {
        const auto size = sizes.isEmpty()
            ? output.size()
            : qsizetype{static_cast<uchar>(sizes[piece % sizes.size()])} + 1;
        reader.append(output.mid(at, size));
        at += size;
    }
    events += reader.savedPath();
    events += reader.halfMadeFile();
    return events + reader.namedFiles();
}

} // namespace

// The first byte says how many sizes follow; the rest is output.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = input(data, size);
    if (bytes.isEmpty())
        return 0;
    const qsizetype count = static_cast<uchar>(bytes[0]) % 8;
    const QByteArray sizes = bytes.mid(1, count);
    const QByteArray output = bytes.mid(1 + count);
    expect(told(output, sizes) == told(output, {}));
    return 0;
}
