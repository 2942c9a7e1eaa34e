// SPDX-License-Identifier: GPL-3.0-or-later
#include "Preferences.h"
#include "Fuzz.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

namespace {

const QString keys[] = {
    QStringLiteral("quillon.downloadDir"), QStringLiteral("quillon.historyLimit"),
    QStringLiteral("quillon.speedLimit"), QStringLiteral("quillon.notifications"),
    QStringLiteral("quillon.history.v2")};

QVariantList valuesOf(const Preferences &preferences)
{
    QVariantList values;
    for (const QString &key : keys) {
        values.append(preferences.string(key).value_or(QStringLiteral("none")));
        values.append(preferences.integer(key));
        values.append(preferences.boolean(key).value_or(false));
        values.append(preferences.blob(key).value_or("none"));
    }
    return values;
}

} // namespace

// The file of preferences: what is read from it survives the next write.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int count = 0;
    static char *no = nullptr;
    static const QCoreApplication application(count, &no);
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/quillon-fuzz-XXXXXX"));
    const QString path = folder.filePath(QStringLiteral("preferences.json"));
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly));
    file.write(input(data, size));
    file.close();

    QVariantList before;
    {
        Preferences preferences(path);
        before = valuesOf(preferences);
        preferences.setString(QStringLiteral("other"), QStringLiteral("value"));
        preferences.flush();
    }
    expect(valuesOf(Preferences(path)) == before);
    const QStringList left = QDir(folder.path()).entryList(QDir::Files);
    for (const QString &name : left)
        QFile::remove(folder.filePath(name));
    return 0;
}
