// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"
#include "PictureBounds.h"

#include <QGuiApplication>

// A picture from the web, of every kind that is read.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static const QGuiApplication application(count, arguments); // it knows the formats
    const QByteArray bytes = input(data, size);
    const QImage picture = boundedPicture(bytes, {320, 180});
    expect(qint64{picture.width()} * picture.height() <= 40'000'000);
    expect(jpegScans(bytes) <= 1000);
    expect(barePng(bytes).size() <= bytes.size());
    return 0;
}
