// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ActivityLog.h"
#include "core/OptionsStore.h"

#include <QTemporaryDir>

// A temporary application folder with its options record, activity log and options store.
struct AppFixture
{
    QTemporaryDir dir;
    nubo::platform::AppFolder app{dir.path()};
    nubo::core::Options options;
    nubo::core::ActivityLog log{app,
                                [this] { return options.isOn(nubo::core::Option::EscribirLog); }};
    nubo::core::OptionsStore store{app, options, log};
};
