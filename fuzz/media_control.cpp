// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"
#include "MprisAdaptors.h"

#include <QCoreApplication>

#include <cmath>
#include <fuzzer/FuzzedDataProvider.h>

using namespace Qt::StringLiterals;

namespace {

/// What other programs may ask for by the media control.
void call(MprisPlayer &player, FuzzedDataProvider &from)
{
    switch (from.ConsumeIntegralInRange(0, 5)) {
    case 0:
        player.Seek(from.ConsumeIntegral<qlonglong>());
        break;
    case 1:
        player.setVolume(from.ConsumeFloatingPoint<double>());
        break;
    case 2: {
        const QVariant own = player.metadata()[u"mpris:trackid"_s];
        const QDBusObjectPath other(QString::fromStdString(from.ConsumeRandomLengthString(64)));
        const bool isOwn = from.ConsumeBool();
        player.SetPosition(isOwn ? own.value<QDBusObjectPath>() : other,
                           from.ConsumeIntegral<qlonglong>());
        break;
    }
    case 3:
        player.setRate(from.ConsumeFloatingPoint<double>());
        break;
    case 4:
        player.OpenUri(QString::fromStdString(from.ConsumeRandomLengthString(64)));
        break;
    default:
        static_cast<void>(player.properties());
        static_cast<void>(player.position());
        break;
    }
}

QString textFrom(FuzzedDataProvider &from)
{
    return QString::fromStdString(from.ConsumeRandomLengthString(64));
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
    FuzzedDataProvider from(data, size);
    MediaControl control(QDBusConnection(u"none"_s));
    MprisPlayer player(&control);
    // Of a stream that claims whatever it likes.
    control.show({.id = textFrom(from),
                  .title = textFrom(from),
                  .artist = textFrom(from),
                  .artURL = textFrom(from),
                  .url = textFrom(from),
                  .duration = from.ConsumeFloatingPoint<double>(),
                  .isPlayable = from.ConsumeBool()});
    control.setPosition(from.ConsumeFloatingPoint<double>());
    QObject::connect(&control, &MediaControl::seekRequested, &control,
                     [](double position) { expect(!std::isnan(position) && position >= 0); });
    QObject::connect(&control, &MediaControl::volumeRequested, &control,
                     [](double volume) { expect(std::isfinite(volume)); });
    while (from.remaining_bytes() > 0)
        call(player, from);
    return 0;
}
