// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "QualityOption.h"

#include <QStringList>

/// What one download consists of.
struct DownloadRequest
{
    QString cookiesBrowser;
    QString speedLimit; ///< as the tool reads it, such as "5M"; "0" or empty: none
    QualityOption quality;
    QString folder;
    QString url;
};

/// The tool's argument list for one download; the same in every workflow. The
/// URL is the last argument.
QStringList downloadArguments(const DownloadRequest &request);
