// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FakeTool.h"
#include "ReleaseServer.h"

#include <QCryptographicHash>
#include <QProcess>

using namespace Qt::StringLiterals;

/// Signs, as who makes releases does, with a key of its own.
class Signer
{
public:
    Signer()
    {
        run({u"--passphrase"_s, QString(), u"--quick-gen-key"_s, u"test@example.org"_s,
             u"ed25519"_s, u"sign"_s, u"never"_s});
        run({u"--armor"_s, u"--output"_s, file("key"), u"--export"_s});
        key = contentOf(file("key"));
    }
    ~Signer()
    {
        QProcess::execute(u"gpgconf"_s, {u"--homedir"_s, m_home.path(), u"--kill"_s, u"all"_s});
    }

    [[nodiscard]] QByteArray signatureOf(const QByteArray &content) const
    {
        writeFile(file("content"), content);
        run({u"--yes"_s, u"--output"_s, file("signature"), u"--detach-sign"_s, file("content")});
        return contentOf(file("signature"));
    }

    QByteArray key; ///< armored

private:
    [[nodiscard]] QString file(const char *name) const
    {
        return m_home.filePath(QString::fromLatin1(name));
    }
    void run(const QStringList &arguments) const
    {
        QProcess gpg;
        gpg.start(u"gpg"_s,
                  QStringList{u"--batch"_s, u"--quiet"_s, u"--homedir"_s, m_home.path()}
                      + arguments);
        if (!gpg.waitForFinished() || gpg.exitCode() != 0)
            qFatal("gpg: %s", gpg.readAllStandardError().constData());
    }

    QTemporaryDir m_home{u"/tmp/quillon-key-XXXXXX"_s}; // its sockets want a short path
};

/// A Python zip whose main module is this code.
inline QByteArray zippedTool(const QByteArray &code)
{
    const QTemporaryDir folder;
    writeFile(folder.filePath(u"__main__.py"_s), code);
    const QString zip = folder.filePath(u"tool.zip"_s);
    const QString script =
        u"import sys, zipfile\n"
        u"with zipfile.ZipFile(sys.argv[2], 'w', zipfile.ZIP_DEFLATED) as file:\n"
        u"    file.write(sys.argv[1], '__main__.py')\n"_s;
    QProcess::execute(u"python3"_s, {u"-c"_s, script, folder.filePath(u"__main__.py"_s), zip});
    return "#!/usr/bin/env python3\n" + contentOf(zip);
}

/// Code of a tool that tells this version.
inline QByteArray versionCode(const QByteArray &version)
{
    return "print('" + version + "')\n";
}

inline QByteArray sumsOf(const QByteArray &tool)
{
    const QByteArray other(64, 'e');
    return other + "  yt-dlp.exe\n"
        + QCryptographicHash::hash(tool, QCryptographicHash::Sha256).toHex() + "  yt-dlp\n" + other
        + "  yt-dlp_linux\n";
}

/// Puts a release on the server, signed.
inline void offer(ReleaseServer &server, const Signer &signer, const QByteArray &tool)
{
    const QByteArray sums = sumsOf(tool);
    server.answers = {{u"yt-dlp"_s, {{.body = tool}}},
                      {u"SHA2-256SUMS"_s, {{.body = sums}}},
                      {u"SHA2-256SUMS.sig"_s, {{.body = signer.signatureOf(sums)}}}};
}
