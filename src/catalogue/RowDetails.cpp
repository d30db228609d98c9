// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RowDetails.h"

#include "catalogue/EntryPathResolver.h"
#include "tags/TagReader.h"

namespace nubo::catalogue {

RowDetailsView RowDetails::ShowRowDetails(const CatalogueList& list, int position,
                                          const QString& currentBoxText) const
{
    RowDetailsView view;
    view.boxText = currentBoxText;
    const QString path = m_resolver.ResolveEntryPath(list, position);
    if (path.isEmpty())
        return view;
    view.toolTip = tags::FileTypeName(path);
    const tags::TagTextResult tag = tags::ShowTagText(path, currentBoxText);
    view.boxVisible = tag.isMpegAudio;
    if (tag.isMpegAudio)
        view.boxText = tag.text;
    return view;
}

QString RowDetails::entryPath(const CatalogueList& list, int position) const
{
    return m_resolver.ResolveEntryPath(list, position);
}

} // namespace nubo::catalogue
