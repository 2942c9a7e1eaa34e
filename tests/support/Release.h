// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FakeTool.h"
#include "ReleaseServer.h"

#include <QCryptographicHash>
#include <QProcess>

/// Signs, as who makes releases does, with a key of its own.
class Signer
{
public:
    Signer()
    {
        run({QStringLiteral("--passphrase"), QString(), QStringLiteral("--quick-gen-key"),
             QStringLiteral("test@example.org"), QStringLiteral("ed25519"), QStringLiteral("sign"),
             QStringLiteral("never")});
        run({QStringLiteral("--armor"), QStringLiteral("--output"), file("key"),
             QStringLiteral("--export")});
        key = contentOf(file("key"));
    }
    ~Signer()
    {
        QProcess::execute(QStringLiteral("gpgconf"),
                          {QStringLiteral("--homedir"), m_home.path(), QStringLiteral("--kill"),
                           QStringLiteral("all")});
    }

    [[nodiscard]] QByteArray signatureOf(const QByteArray &content) const
    {
        writeFile(file("content"), content);
        run({QStringLiteral("--yes"), QStringLiteral("--output"), file("signature"),
             QStringLiteral("--detach-sign"), file("content")});
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
        gpg.start(QStringLiteral("gpg"),
                  QStringList{QStringLiteral("--batch"), QStringLiteral("--quiet"),
                              QStringLiteral("--homedir"), m_home.path()}
                      + arguments);
        if (!gpg.waitForFinished() || gpg.exitCode() != 0)
            qFatal("gpg: %s", gpg.readAllStandardError().constData());
    }

    QTemporaryDir m_home{
        QStringLiteral("/tmp/quillon-key-XXXXXX")}; // its sockets want a short path
};

/// A Python zip whose main module is this code.
inline QByteArray zippedTool(const QByteArray &code)
{
    const QTemporaryDir folder;
    writeFile(folder.filePath(QStringLiteral("__main__.py")), code);
    const QString zip = folder.filePath(QStringLiteral("tool.zip"));
    const QString script =
        QStringLiteral("import sys, zipfile\n"
                       "with zipfile.ZipFile(sys.argv[2], 'w', zipfile.ZIP_DEFLATED) as file:\n"
                       "    file.write(sys.argv[1], '__main__.py')\n");
    QProcess::execute(
        QStringLiteral("python3"),
        {QStringLiteral("-c"), script, folder.filePath(QStringLiteral("__main__.py")), zip});
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
    server.answers = {{QStringLiteral("yt-dlp"), {{.body = tool}}},
                      {QStringLiteral("SHA2-256SUMS"), {{.body = sums}}},
                      {QStringLiteral("SHA2-256SUMS.sig"), {{.body = signer.signatureOf(sums)}}}};
}
