// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CatalogueSamples.h"

#include "catalogue/Catalogue.h"
#include "core/ActivityLog.h"
#include "core/Options.h"
#include "database/CatalogueFiles.h"
#include "database/flow/CatalogueFileFlow.h"
#include "database/flow/ITransferView.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeDrives.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>
#include <sys/resource.h>

// The catalogue file flow over a real catalogue, real files in a temporary folder and fake
// dialogs, shared by the flow's tests.
namespace nubo::test {

// Records the progress calls; runs what the test chooses inside a chosen turn of a loop, as
// a key press or a menu command would arrive while a save or load lets events run.
struct FakeView final : database::ITransferView
{
    std::function<void()> onTurn;
    int atTurn = 0; // 0: never
    int turns = 0;
    int begun = 0;
    int ended = 0;
    int maximum = -1;

    void beginProgress(int max) override
    {
        ++begun;
        maximum = max;
    }
    void setProgress(int) override {}
    void endProgress() override { ++ended; }
    void processEvents() override
    {
        if (++turns == atTurn && onTurn)
            onTurn();
    }
};

struct Flow
{
    QTemporaryDir dir;
    platform::AppFolder app{dir.path()};
    platform::FakeDrives drives;
    platform::FakeDialogs dialogs;
    catalogue::Catalogue catalogue{drives, dialogs};
    core::Options options;
    core::ActivityLog log{app, [] { return true; }};
    database::SheetSettings sheet;
    FakeView view;
    database::CatalogueFileFlow flow{{catalogue, view, dialogs, log, options, sheet}};
    QStringList statuses;

    Flow()
    {
        QDir(dir.path()).mkpath(QStringLiteral("log"));
        catalogue.setSaveFlow(&flow);
        QObject::connect(&catalogue.info(), &catalogue::InfoMessage::changed,
                         [this](const QString& text, quint32) { statuses.append(text); });
    }
    QString path(const QString& name) const { return dir.filePath(name); }
    // Rows "r0" .. "r(n-1)", r0 at the top.
    void fill(int n)
    {
        for (int i = n - 1; i >= 0; --i)
            catalogue.list().insertAtTop({QStringLiteral("r%1").arg(i), QStringLiteral("\\d\\"),
                                          QStringLiteral("g"), QStringLiteral("MP3"),
                                          QStringLiteral("C:")});
    }
    QStringList names() const
    {
        QStringList out;
        for (int p = 0; p < catalogue.list().count(); ++p)
            out.append(catalogue.list().row(p).nombre);
        return out;
    }
    QString status() const { return statuses.isEmpty() ? QString() : statuses.last(); }
    // Runs what at the given turn of the next loop.
    void atTurn(int turn, std::function<void()> what)
    {
        view.turns = 0;
        view.atTurn = turn;
        view.onTurn = std::move(what);
    }
    // The files left in the folder: a failed save leaves no temporary file behind.
    QStringList files(const QString& folder = {}) const
    {
        return QDir(folder.isEmpty() ? dir.path() : folder)
            .entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QString failure(const QString& path) const
    {
        return "No se puede acceder al archivo " + path +
               " Compruebe que el archivo exista y no sea de solo lectura\nCausa: ";
    }
};

using database::test::addFormats;

// While it lives, files cannot grow beyond the limit, as on a full disk: writes past it fail
// (with the signal that would end the process ignored).
class FileSizeLimit final
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_old); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_old{};
};

// The file's rows in file order (a database loads them last first).
inline QStringList storedNames(const QString& path)
{
    QStringList out;
    const auto loaded = database::loadCatalogue(path);
    for (const database::CatalogueRecord& record :
         loaded ? loaded->rows : QList<database::CatalogueRecord>())
        out.prepend(record.nombre);
    if (!path.endsWith(QLatin1String("mdb"), Qt::CaseInsensitive))
        std::reverse(out.begin(), out.end());
    return out;
}

} // namespace nubo::test
