// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvFixture.h"

#include <QTemporaryDir>

#include <algorithm>
#include <span>

/// What is heard of a stream with the real engine.
class MpvSoundTest : public MpvFixture
{
    Q_OBJECT

private Q_SLOTS:
    void soundOutlastingThePictureIsHeardToItsEnd_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<double>("seconds");
        QTest::newRow("picture of 1.4 s, sound of 2 s") << "long-sound.mp4"_ba << 2.0;
        QTest::newRow("one picture a second for 3 s") << "slides.mp4"_ba << 3.0;
    }

    void soundOutlastingThePictureIsHeardToItsEnd()
    {
        QFETCH(QByteArray, path);
        QFETCH(double, seconds);
        load(path); // at its own speed
        QTRY_VERIFY_WITH_TIMEOUT(m_ends == 1 || !m_failures.isEmpty(), patience);
        QCOMPARE(m_failures, QStringList());
        const QByteArray sound = heard(path, 1, false);
        // Without a clock one picture a second is left behind by more than any clock would.
        if (seconds < 3)
            QCOMPARE(m_failures, QStringList());
        const double samples = static_cast<double>(sound.size()) / sizeof(qint16);
        QVERIFY2(samples > (seconds - 0.1) * 44100, qPrintable(QString::number(samples)));
    }

    void theVolumeReachesTheOutput()
    {
        const int whole = loudness(1, false);
        QVERIFY2(whole > 2000, qPrintable(QString::number(whole)));
        const int low = loudness(0.5, false);
        QVERIFY2(low > 0 && low < whole / 2, qPrintable(QString::number(low)));
        QCOMPARE(loudness(1, true), 0);
    }

    void withoutASoundDeviceItPlays()
    {
        // No server and no card that could be meant.
        for (const char *const name : {"PULSE_SERVER", "PIPEWIRE_REMOTE", "ALSA_CONFIG_PATH"})
            qputenv(name, "/nowhere");
        make();
        load("clip.mp4");
        QTRY_COMPARE_WITH_TIMEOUT(m_ends, 1, patience);
        QVERIFY(m_failures.isEmpty());
        QVERIFY(!isBlack(m_pictures.last()));
        for (const char *const name : {"PULSE_SERVER", "PIPEWIRE_REMOTE", "ALSA_CONFIG_PATH"})
            qunsetenv(name);
    }

private:
    /// The greatest sample of what the clip brings to the output.
    int loudness(double volume, bool isMuted)
    {
        const QByteArray bytes = heard("clip.mp4", volume, isMuted);
        const std::span samples(reinterpret_cast<const qint16 *>(bytes.constData()),
                                static_cast<size_t>(bytes.size()) / sizeof(qint16));
        return samples.empty() ? -1 : *std::max_element(samples.begin(), samples.end());
    }

    /// The samples that reach an output that is a file, until the end is told.
    QByteArray heard(const QByteArray &stream, double volume, bool isMuted)
    {
        const QTemporaryDir folder;
        const QByteArray path = folder.filePath(u"sound"_s).toUtf8();
        m_ends = 0;
        make({{"ao", "pcm"},
              {"ao-pcm-file", path.constData()},
              {"ao-pcm-waveheader", "no"},
              {"audio-format", "s16"},
              {"audio-channels", "mono"},
              {"audio-samplerate", "44100"}});
        m_engine->setVolume(volume);
        m_engine->setMuted(isMuted);
        load(stream);
        // Without a clock of its own the sound may leave the picture far behind.
        if (!QTest::qWaitFor([this] { return m_ends == 1 || !m_failures.isEmpty(); }, 30000))
            return {};
        m_engine.reset(); // writes what is left
        QFile file(QString::fromUtf8(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

QTEST_MAIN(MpvSoundTest)
#include "MpvSoundTest.moc"
