#include "catalogue/EntryOpener.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "catalogue/EntryPathResolver.h"
#include "core/Options.h"
#include "platform/IShell.h"

namespace nubo::catalogue {

void EntryOpener::PlaySelectedEntry(int focusedPosition)
{
    const CatalogueList& list = m_catalogue.list();
    if (list.isEmpty())
        return;
    // An unresolved row still goes to the shell as an empty path.
    m_shell.open(m_resolver.ResolveEntryPath(list, focusedPosition));
}

void EntryOpener::EnqueueSelectedEntries()
{
    const CatalogueList& list = m_catalogue.list();
    for (int p = 0; p < list.count(); ++p) {
        if (list.isSelected(p))
            m_shell.enqueue(m_resolver.ResolveEntryPath(list, p));
    }
}

void EntryOpener::ExecuteOnDoubleClick(int focusedPosition)
{
    const CatalogueList& list = m_catalogue.list();
    if (!m_options.isOn(core::Option::DblClkExecute) || list.isEmpty())
        return;
    const QString path = m_resolver.ResolveEntryPath(list, focusedPosition);
    if (m_shell.open(path) != platform::IShell::Result::NoAssociation)
        return;
    // Kept from Windows: a file type without an application gets the "open with" chooser.
    if (!m_shell.openWith(path)) {
        m_catalogue.ShowInfoMessage(
            QStringLiteral(
                "El archivo no existe o la extencion no esta asociada a ninguna aplicacion"),
            5000, colours::kYellow);
    }
}

} // namespace nubo::catalogue
