// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Release.h"
#include "ToolFolder.h"
#include "ToolUpdate.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Updates with a server, a signer and releases of the test's own, and the real gpgv and
/// Python. Whatever goes wrong: a sentence, the old tool as it was, and nothing left.
class UpdateFixture : public QObject
{
protected:
    void init()
    {
        if (!m_signer)
            m_signer.emplace();
        m_home.emplace();
        m_server.emplace();
        m_present = {};
        m_environment = {{u"PATH"_s, m_home->filePath(u"bin"_s) + u":/usr/bin:/bin"_s},
                         {u"HOME"_s, m_home->path()},
                         {u"LANG"_s, u"en_US.UTF-8"_s}};
        m_source = {.folder = m_server->url(), .key = m_signer->key};
        offer(*m_server, *m_signer, zippedTool(versionCode("2026.08.19")));
    }

    void cleanup()
    {
        m_update.reset();
        QVERIFY(!QFileInfo::exists(own() + u"/../.quillon-update"_s));
    }

    QString own() const
    {
        return m_ownPath.isEmpty() ? m_home->filePath(u".local/bin/yt-dlp"_s) : m_ownPath;
    }
    QStringList ownFolder() const
    {
        return QDir(QFileInfo(own()).path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void answer(const char *name, const ReleaseServer::Answer &one)
    {
        m_server->answers[QString::fromLatin1(name)] = {one};
    }

    void begin()
    {
        m_outcome.reset();
        m_update = std::make_unique<ToolUpdate>(
            m_source,
            ToolPlaces{.searchPaths = {own()}, .ownPath = own(), .environment = m_environment},
            m_present,
            ToolUpdate::Handlers{.onProgress =
                                     [this](const UpdateProgress &progress) {
                                         const std::scoped_lock lock(m_mutex);
                                         m_progress.append(progress);
                                     },
                                 .onEnd =
                                     [this](const UpdateOutcome &outcome) {
                                         const std::scoped_lock lock(m_mutex);
                                         m_outcome = outcome;
                                     }});
    }
    bool waitForEnd()
    {
        return QTest::qWaitFor(
            [this] {
                const std::scoped_lock lock(m_mutex);
                return m_outcome.has_value();
            },
            60000);
    }
    UpdateOutcome updated()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_progress.clear();
        }
        begin();
        return waitForEnd() ? *m_outcome : UpdateOutcome{.version = {}, .error = u"no end"_s};
    }

    /// An old tool of ours stands there.
    void prepareOld()
    {
        QVERIFY(QDir().mkpath(QFileInfo(own()).path()));
        m_old = "old" + ownMark(QByteArray(64, '0'));
        writeFile(own(), m_old);
    }
    void checkOld()
    {
        QCOMPARE(contentOf(own()), m_old);
        QCOMPARE(ownFolder(), {u"yt-dlp"_s});
    }
    QString refused()
    {
        prepareOld();
        const UpdateOutcome outcome = updated();
        checkOld();
        return outcome.error;
    }
    void checkRefused(const QString &error) { QCOMPARE(refused(), error); }

    /// A program that goes before the system's.
    void stub(const QString &name, const QByteArray &body)
    {
        QVERIFY(QDir(m_home->path()).mkpath(u"bin"_s));
        const QString path = m_home->filePath(u"bin/"_s + name);
        writeFile(path, "#!/bin/sh\n" + body + "\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    }
    /// No other programs than these.
    void provideOnly(const QStringList &names)
    {
        QVERIFY(QDir(m_home->path()).mkpath(u"bin"_s));
        for (const QString &name : names)
            QVERIFY(QFile::link(u"/usr/bin/"_s + name, m_home->filePath(u"bin/"_s + name)));
        m_environment[u"PATH"_s] = m_home->filePath(u"bin"_s);
    }

    std::optional<Signer> m_signer;
    std::optional<QTemporaryDir> m_home;
    std::optional<ReleaseServer> m_server;
    QString m_ownPath;
    QByteArray m_old;
    ReleaseSource m_source;
    QMap<QString, QString> m_environment;
    ToolVersion m_present;
    std::mutex m_mutex;
    QList<UpdateProgress> m_progress;
    std::optional<UpdateOutcome> m_outcome;
    std::unique_ptr<ToolUpdate> m_update;
};
