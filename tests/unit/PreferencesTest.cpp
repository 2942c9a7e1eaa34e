// SPDX-License-Identifier: GPL-3.0-or-later
#include "Preferences.h"
#include "FakeTool.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

Preferences::BlobEncoder bytes(const QByteArray &content)
{
    return [content] { return std::optional(content); };
}

} // namespace

class PreferencesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(u"quillon/preferences.json"_s);
    }

    void anEmptyStoreHoldsNothing()
    {
        const Preferences preferences(m_path);
        QVERIFY(!preferences.string(u"a"_s));
        QCOMPARE(preferences.integer(u"a"_s), 0);
        QVERIFY(!preferences.boolean(u"a"_s));
        QVERIFY(!preferences.blob(u"a"_s));
        QVERIFY(!QFile::exists(m_path));
    }

    void onlyTheOwnerMayReadThem()
    {
        constexpr auto owner =
            QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
        {
            Preferences preferences(m_path);
            preferences.setString(u"a"_s, u"b"_s);
            preferences.flush();
            QCOMPARE(QFile::permissions(m_path), owner);
        }
        QFile::setPermissions(m_path, owner | QFile::ReadOther | QFile::ReadGroup);
        Preferences preferences(m_path);
        QCOMPARE(QFile::permissions(m_path), owner); // also what an earlier release wrote
        QFile::setPermissions(m_path, owner | QFile::ReadOther | QFile::ReadGroup);
        preferences.setString(u"a"_s, u"c"_s);
        preferences.flush();
        QCOMPARE(QFile::permissions(m_path), owner);
    }

    void everyKindComesBackAsItWas()
    {
        {
            Preferences preferences(m_path);
            preferences.setString(u"text"_s, u"false 街"_s);
            preferences.setInteger(u"number"_s, 9007199254740993);
            preferences.setBoolean(u"yes"_s, true);
            preferences.setBlob(u"text blob"_s,
                                bytes("[\"街\"]"_ba.replace("街", u"街"_s.toUtf8())));
            preferences.setBlob(u"byte blob"_s, bytes("\xff\x00\x01"_ba));
        }
        const Preferences preferences(m_path);
        QCOMPARE(preferences.string(u"text"_s), u"false 街"_s);
        QCOMPARE(preferences.integer(u"number"_s), 9007199254740993);
        QCOMPARE(preferences.boolean(u"yes"_s), true);
        QCOMPARE(preferences.blob(u"text blob"_s), u"[\"街\"]"_s.toUtf8());
        QCOMPARE(preferences.blob(u"byte blob"_s), "\xff\x00\x01"_ba);
    }

    void aLongBlobIsCompressedAndRestored()
    {
        const QByteArray document = QByteArray("[\"a\",\"b\"]").repeated(100000);
        Preferences(m_path).setBlob(u"blob"_s, bytes(document));
        QCOMPARE(Preferences(m_path).blob(u"blob"_s), document);
        QVERIFY(contentOf(m_path).size() < document.size() / 10);
    }

    void anUnreadableBlobStaysUntilSaved()
    {
        store(R"({"blob":{"compressed":"bm90IGNvbXByZXNzZWQ="},"ours":"a"})");
        {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"qUncompress"_s));
            Preferences preferences(m_path);
            QVERIFY(!preferences.blob(u"blob"_s));
            preferences.setString(u"ours"_s, u"b"_s);
        }
        const QByteArray content = contentOf(m_path);
        QVERIFY(content.contains("bm90IGNvbXByZXNzZWQ="));
        QVERIFY(content.contains(R"("b")"));
    }

    void kindsAreConvertedAsATypedStoreDoes()
    {
        store(R"({"digits":"100","words":"many","number":25,"real":2.5,"yes":true,"list":[1]})");
        const Preferences preferences(m_path);
        QCOMPARE(preferences.integer(u"digits"_s), 100);
        QCOMPARE(preferences.integer(u"words"_s), 0);
        QCOMPARE(preferences.integer(u"real"_s), 2);
        QCOMPARE(preferences.integer(u"list"_s), 0);
        QCOMPARE(preferences.string(u"number"_s), u"25"_s);
        QCOMPARE(preferences.string(u"real"_s), u"2.5"_s);
        QVERIFY(!preferences.string(u"list"_s));
    }

    void onlyARealBooleanIsOne()
    {
        store(R"({"one":1,"text":"false","real":true})");
        const Preferences preferences(m_path);
        QVERIFY(!preferences.boolean(u"one"_s));
        QVERIFY(!preferences.boolean(u"text"_s));
        QCOMPARE(preferences.boolean(u"real"_s), true);
    }

    void valuesOfOthersStay()
    {
        store(R"({"theirs":{"list":[1,null,"x"]},"ours":"a"})");
        {
            Preferences preferences(m_path);
            preferences.setString(u"ours"_s, u"b"_s);
        }
        const QByteArray content = contentOf(m_path).simplified().replace(" ", "");
        QVERIFY(content.contains(R"("theirs":{"list":[1,null,"x"]})"));
        QVERIFY(content.contains(R"("ours":"b")"));
    }

    void anUnencodableBlobStaysAsItWas()
    {
        Preferences preferences(m_path);
        preferences.setBlob(u"blob"_s, bytes("old"));
        preferences.flush();
        preferences.setBlob(u"blob"_s, [] { return std::optional<QByteArray>(); });
        preferences.flush();
        QCOMPARE(Preferences(m_path).blob(u"blob"_s), "old"_ba);
    }

    void damagedFilesAreSetAsideBeforeWriting_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("cut short") << "{\"quillon.downloadDir\":\"/a\",\"quillon.hi"_ba;
        QTest::newRow("empty") << ""_ba;
        QTest::newRow("no object") << "[1,2]"_ba;
        QTest::newRow("not UTF-8") << "{\"a\":\"\xff\"}"_ba;
        QTest::newRow("not JSON") << "downloadDir=/a"_ba;
    }

    void damagedFilesAreSetAsideBeforeWriting()
    {
        QFETCH(QByteArray, content);
        store(content);
        Preferences preferences(m_path);
        QVERIFY(!preferences.string(u"quillon.downloadDir"_s));
        QCOMPARE(contentOf(m_path), content); // nothing happens until something is written
        preferences.setString(u"a"_s, u"b"_s);
        preferences.flush();
        QCOMPARE(Preferences(m_path).string(u"a"_s), u"b"_s);
        QCOMPARE(asideFiles().size(), 1);
        QCOMPARE(contentOf(asideFiles().first()), content);
        preferences.setString(u"a"_s, u"c"_s);
        preferences.flush();
        QCOMPARE(asideFiles().size(), 1);
    }

    void anEarlierDamagedFileIsNotOverwritten()
    {
        for (int round = 0; round < 3; ++round) {
            store("damage " + QByteArray::number(round));
            Preferences preferences(m_path);
            preferences.setString(u"a"_s, u"b"_s);
        }
        QCOMPARE(asideFiles().size(), 3);
    }

    void withoutAFolderValuesStayInMemory()
    {
        writeFile(m_folder->filePath(u"quillon"_s), "a file where the folder should be");
        Preferences preferences(m_path);
        preferences.setString(u"a"_s, u"b"_s);
        preferences.flush();
        QCOMPARE(preferences.string(u"a"_s), u"b"_s);
        QVERIFY(!QFile::exists(m_path));
    }

    void aFailedWriteIsTriedAgain()
    {
        store("in the way of the folder");
        const QString path = m_path + u"/preferences.json"_s;
        Preferences preferences(path, std::chrono::milliseconds(20));
        preferences.setString(u"a"_s, u"b"_s);
        preferences.flush();
        QFile::remove(m_path);
        QVERIFY(QTest::qWaitFor([&path] { return QFile::exists(path); }, 30000));
        QCOMPARE(Preferences(path).string(u"a"_s), u"b"_s);
    }

    void aFailedWriteIsRetriedAtTheEnd()
    {
        store("in the way of the folder");
        const QString path = m_path + u"/preferences.json"_s;
        {
            Preferences preferences(path);
            preferences.setString(u"a"_s, u"b"_s);
            preferences.flush();
            QFile::remove(m_path);
        }
        QCOMPARE(Preferences(path).string(u"a"_s), u"b"_s);
    }

    void aSavedValueReplacesWhateverHadItsKey()
    {
        store(R"({"a": {"utf8": "x"}, "b": "text"})");
        {
            Preferences preferences(m_path);
            preferences.setString(u"a"_s, u"saved"_s);
            preferences.setBlob(u"b"_s, bytes("blob"));
        }
        const Preferences preferences(m_path);
        QCOMPARE(preferences.string(u"a"_s), u"saved"_s);
        QVERIFY(!preferences.blob(u"a"_s));
        QCOMPARE(preferences.blob(u"b"_s), "blob"_ba);
    }

    void aReadOnlyFileStaysAsItIs()
    {
        store(R"({"a":"old"})");
        // As root nothing is read-only, so the attempt is made by somebody else.
        const pid_t child = fork();
        if (child == 0) {
            Q_UNUSED(chmod(QFile::encodeName(m_path), 0444))
            Q_UNUSED(chmod(QFile::encodeName(QFileInfo(m_path).path()), 0555))
            Q_UNUSED(chmod(QFile::encodeName(m_folder->path()), 0755))
            if (geteuid() == 0 && setuid(65534) != 0)
                _exit(2);
            Preferences preferences(m_path);
            const bool couldRead = preferences.string(u"a"_s) == u"old"_s;
            preferences.setString(u"a"_s, u"new"_s);
            preferences.flush();
            _exit(couldRead && preferences.string(u"a"_s) == u"new"_s ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        QCOMPARE(status, 0);
        QCOMPARE(Preferences(m_path).string(u"a"_s), u"old"_s);
        QFile::setPermissions(QFileInfo(m_path).path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void aKillNeverLeavesAPartialFile()
    {
        store(R"({"number":"0"})");
        QByteArray filler(200000, '\0'); // of chance, so that it stays long in the file
        std::generate(filler.begin(), filler.end(), [chance = QRandomGenerator(1)]() mutable {
            return static_cast<char>(chance.generate());
        });
        for (int round = 0; round < 20; ++round) {
            int ready[2];
            QCOMPARE(pipe(ready), 0);
            const pid_t child = fork();
            if (child == 0) {
                Preferences preferences(m_path);
                for (int number = 0;; ++number) {
                    preferences.setBlob(u"filler"_s, bytes(filler));
                    preferences.setString(u"number"_s, QString::number(number));
                    if (number % 8 == 7) {
                        preferences.flush();
                        Q_UNUSED(write(ready[1], "x", 1))
                    }
                }
            }
            // In the middle of what follows some write, another one each round.
            for (int seen = 0; seen <= round % 5; ++seen) {
                char byte = 0;
                QCOMPARE(read(ready[0], &byte, 1), 1);
            }
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
            close(ready[0]);
            close(ready[1]);
            const Preferences preferences(m_path);
            QVERIFY(preferences.string(u"number"_s));
            QCOMPARE(preferences.blob(u"filler"_s), filler);
        }
        QVERIFY(asideFiles().isEmpty());
    }

private:
    void store(const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(m_path).path());
        writeFile(m_path, content);
    }

    [[nodiscard]] QStringList asideFiles() const
    {
        QStringList paths;
        const QFileInfoList files =
            QFileInfo(m_path).dir().entryInfoList({u"*.damaged-*"_s}, QDir::Files);
        for (const QFileInfo &file : files)
            paths.append(file.filePath());
        return paths;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "PreferencesTest.moc"
