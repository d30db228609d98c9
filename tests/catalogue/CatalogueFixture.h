// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/EntryOpener.h"
#include "catalogue/EntryPathResolver.h"
#include "core/Options.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeDrives.h"
#include "platform/fakes/FakeShell.h"

#include <QDir>
#include <QTemporaryDir>

#include "TestFiles.h"

// A row of group origen with size bytes and seconds of sound (-1: unknown).
inline nubo::catalogue::CatalogueRow rowOf(const QString& origen, qint64 size = -1,
                                           qint32 seconds = -1)
{
    nubo::catalogue::CatalogueRow row{QStringLiteral("tema"), QStringLiteral("\\"), origen,
                                      QStringLiteral("MP3"), QStringLiteral("NN")};
    row.details.size = size;
    row.details.duration = seconds;
    return row;
}

// A temporary tree whose folder "C" is a fixed drive, with a catalogue over it.
struct CatalogueFixture
{
    QTemporaryDir dir;
    QString drive = dir.path() + QStringLiteral("/C");
    nubo::platform::FakeDrives drives;
    nubo::platform::FakeDialogs dialogs;
    nubo::catalogue::Catalogue catalogue{drives, dialogs};

    CatalogueFixture()
    {
        QDir().mkpath(drive);
        drives.add(QStringLiteral("/"), nubo::platform::DriveType::Fixed);
        drives.add(drive, nubo::platform::DriveType::Fixed);
    }

    // Creates the file below the drive and returns its full path.
    QString file(const QString& relative)
    {
        const QString path = drive + QLatin1Char('/') + relative;
        nubo::test::writeFile(path);
        return path;
    }

    // Adds a copy of the path, as the callers that still need it do.
    void add(const QString& path)
    {
        QString copy = path;
        catalogue.AddFileToList(copy);
    }

    // Adds n files named f0 .. f(n-1); f(n-1) ends at the top.
    void addMany(int n)
    {
        for (int i = 0; i < n; ++i)
            add(file(QStringLiteral("Musica/f%1.mp3").arg(i)));
    }
};

// The catalogue with its entries' opener, the options it reads and the shell recorded.
struct OpenerFixture : CatalogueFixture
{
    nubo::core::Options options;
    nubo::platform::FakeShell shell;
    nubo::catalogue::EntryPathResolver resolver{drives};
    nubo::catalogue::EntryOpener opener{catalogue, resolver, shell, options};
};
