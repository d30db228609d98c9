#pragma once

#include "app/ActivityLog.h"
#include "app/OptionsStore.h"

#include <QTemporaryDir>

// A temporary application folder with its options record, activity log and options store.
struct AppFixture
{
    QTemporaryDir dir;
    nubo::platform::AppFolder app{dir.path()};
    nubo::app::Options options;
    nubo::app::ActivityLog log{app,
                               [this] { return options.isOn(nubo::app::Option::EscribirLog); }};
    nubo::app::OptionsStore store{app, options, log};
};
