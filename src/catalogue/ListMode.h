// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace nubo::catalogue {

// The list's three modes; exactly one is in force.
enum class ListMode { Funcional, Edit, Mover };

// What each mode allows: the file-options popup, opening on double click and starting the
// name editing with a click on the selected row (the other modes edit only on request).
struct ListModeRules
{
    bool popupEnabled;
    bool doubleClickOpens;
    bool editOnClick;
    bool allColumnsShowFocus; // the list's second display setting
};

constexpr ListModeRules rulesOf(ListMode mode)
{
    if (mode == ListMode::Funcional)
        return {true, true, true, true};
    return {false, false, false, false};
}

} // namespace nubo::catalogue
