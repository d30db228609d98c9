// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DropHandler.h"
#include "catalogue/IPropertiesViewer.h"
#include "catalogue/ISearchLauncher.h"
#include "catalogue/ListFilter.h"
#include "catalogue/RowDetails.h"
#include "catalogue/ui/CatalogueView.h"
#include "catalogue/ui/Form1.h"

#include <QAction>
#include <QLabel>
#include <QTest>

#include <optional>

#include "CatalogueFixture.h"
#include "WindowControl.h"

// Records what the list window asks of the search.
class FakeSearch final : public nubo::catalogue::ISearchLauncher
{
public:
    QStringList calls;
    bool searching = false;

    void RunSearch() override { calls.append(QStringLiteral("run")); }
    void searchFolder(const QString& folder, const QString& mask) override
    {
        calls.append(folder + QLatin1Char('|') + mask);
    }
    bool stop() override
    {
        calls.append(QStringLiteral("stop"));
        const bool was = searching;
        searching = false;
        return was;
    }
};

// The list window over a temporary drive, an empty application folder and fake services.
struct Form1Fixture : OpenerFixture
{
    QTemporaryDir appDir;
    nubo::platform::AppFolder app{appDir.path()};
    nubo::catalogue::RowDetails details{resolver};
    nubo::catalogue::DropHandler drops{catalogue, dialogs};
    FakeSearch search;
    nubo::catalogue::Form1 form{{app, catalogue, opener, details, drops, options}};

    // at: where the window first opens, when the test cares.
    explicit Form1Fixture(std::optional<QPoint> at = std::nullopt)
    {
        form.setSearchLauncher(&search);
        if (at)
            form.move(*at);
        form.show();
        if (!QTest::qWaitForWindowExposed(&form))
            qWarning("the list window was not exposed");
    }

    // The window's controls, by their names.
    template <class T> T* control(const char* name) { return nubo::test::control<T>(form, name); }
    nubo::catalogue::CatalogueView* view()
    {
        return control<nubo::catalogue::CatalogueView>("ListView1");
    }
    QAction* action(const char* name) { return control<QAction>(name); }
    QLabel* label(const char* name) { return control<QLabel>(name); }

    // The view's index of the row at position, once the view knows it.
    QModelIndex viewIndex(int position, int column = 0)
    {
        catalogue.list().flush();
        const auto* shown = static_cast<const nubo::catalogue::ListFilter*>(view()->model());
        return shown->indexAt(position, static_cast<nubo::catalogue::Column>(column));
    }
    // The centre of the row at position in the list's viewport.
    QPoint rowPoint(int position, int column = 0)
    {
        return view()->visualRect(viewIndex(position, column)).center();
    }
};

// An MP3 file ending in an ID3v1 tag with these fields, each padded to its width with pad.
inline QString writeTagged(Form1Fixture& f, const QString& name, const QByteArray& title,
                           const QByteArray& artist, char pad = ' ')
{
    QByteArray tag(128, pad);
    tag.replace(0, 3, "TAG");
    tag.replace(3, title.size(), title);
    tag.replace(33, artist.size(), artist);
    tag[127] = char(0);
    const QString path = f.drive + QStringLiteral("/M/") + name;
    nubo::test::writeFile(path, QByteArray(200, 'x') + tag);
    return path;
}
