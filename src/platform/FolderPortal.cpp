// SPDX-License-Identifier: GPL-3.0-or-later
#include "FolderPortal.h"

#include <QDBusVariant>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// A portal that is only now started needs a while.
constexpr std::chrono::seconds patience{5};

const QString fileChooser = u"org.freedesktop.portal.FileChooser"_s;

// Of the file chooser's interface.
constexpr uint choosesFolders = 3;
constexpr uint startsInFolder = 4;

} // namespace

FolderPortal::FolderPortal(const QDBusConnection &bus)
    : m_bus(bus)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &FolderPortal::giveUp);
}

void FolderPortal::open(const QString &parentWindow, const QString &startFolder)
{
    end();
    m_parentWindow = parentWindow;
    m_startFolder = startFolder;
    m_request = std::make_unique<PortalRequest>(m_bus);
    connect(m_request.get(), &PortalRequest::answered, this, &FolderPortal::handleAnswer);
    connect(m_request.get(), &PortalRequest::cancelled, this, &FolderPortal::end);
    connect(m_request.get(), &PortalRequest::failed, this, &FolderPortal::giveUp);
    m_patience.start();
    BusObject(m_bus, u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
              u"org.freedesktop.DBus.Properties"_s)
        .call(u"Get"_s, {fileChooser, u"version"_s}, m_request.get(),
              [this, request = m_request.get()](const QDBusMessage &reply) {
                  if (request == m_request.get()) // which lives on for a moment after end()
                      handleVersion(reply);
              });
}

void FolderPortal::handleVersion(const QDBusMessage &reply)
{
    m_patience.stop();
    const uint version = reply.arguments().value(0).value<QDBusVariant>().variant().toUInt();
    if (reply.type() != QDBusMessage::ReplyMessage || version < choosesFolders) {
        giveUp();
        return;
    }
    QVariantMap options{{u"accept_label"_s, u"Select Folder"_s}, {u"directory"_s, true}};
    if (version >= startsInFolder) // bytes that end with a zero
        options.insert(u"current_folder"_s, QFile::encodeName(m_startFolder) + '\0');
    m_request->send(fileChooser, u"OpenFile"_s, {m_parentWindow, u"Choose Download Folder"_s},
                    options);
}

void FolderPortal::handleAnswer(const QVariantMap &results)
{
    end();
    const QUrl folder(results.value(u"uris"_s).toStringList().value(0));
    if (folder.isLocalFile())
        Q_EMIT chosen(folder);
}

void FolderPortal::end()
{
    m_patience.stop();
    if (!m_request)
        return;
    m_request->disconnect(this);
    m_request.release()->deleteLater(); // it may be what calls
}

void FolderPortal::giveUp()
{
    end();
    Q_EMIT unavailable();
}
