// SPDX-License-Identifier: GPL-3.0-or-later
#include "Preferences.h"
#include "Fuzz.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QString keys[] = {u"quillon.downloadDir"_s, u"quillon.historyLimit"_s,
                        u"quillon.speedLimit"_s, u"quillon.notifications"_s,
                        u"quillon.history.v2"_s};

QVariantList valuesOf(const Preferences &preferences)
{
    QVariantList values;
    for (const QString &key : keys) {
        values.append(preferences.string(key).value_or(u"none"_s));
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
    static const QTemporaryDir folder(u"/dev/shm/quillon-fuzz-XXXXXX"_s);
    const QString path = folder.filePath(u"preferences.json"_s);
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly));
    file.write(input(data, size));
    file.close();

    QVariantList before;
    {
        Preferences preferences(path);
        before = valuesOf(preferences);
        preferences.setString(u"other"_s, u"value"_s);
        preferences.flush();
    }
    expect(valuesOf(Preferences(path)) == before);
    const QStringList left = QDir(folder.path()).entryList(QDir::Files);
    for (const QString &name : left)
        QFile::remove(folder.filePath(name));
    return 0;
}
