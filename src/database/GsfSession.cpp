// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/GsfSession.h"

#include <gsf/gsf-utils.h>

#include <mutex>

namespace nubo::database {
namespace {

std::mutex& sinkMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::function<void(const QString&)>& sink()
{
    static std::function<void(const QString&)> current;
    return current;
}

void forwardMessage(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer)
{
    const char* kind = (level & G_LOG_LEVEL_CRITICAL) != 0  ? "CRITICAL"
                       : (level & G_LOG_LEVEL_WARNING) != 0 ? "WARNING"
                                                            : "aviso";
    const QString line = QStringLiteral("%1 %2: %3")
                             .arg(QString::fromUtf8(domain != nullptr ? domain : "libgsf"),
                                  QLatin1String(kind), QString::fromUtf8(message).simplified());
    const std::lock_guard lock(sinkMutex());
    if (sink())
        sink()(line);
}

// The library logs under its own domains, and a few messages under the default one.
void routeLibraryMessages()
{
    const auto levels = GLogLevelFlags(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION);
    for (const char* domain : {"libgsf", "libgsf:msole", "libgsf:zip", "GLib-GObject"})
        g_log_set_handler(domain, levels, forwardMessage, nullptr);
    g_log_set_handler(nullptr, levels, forwardMessage, nullptr);
}

} // namespace

void ensureGsf()
{
    static std::once_flag once;
    std::call_once(once, [] {
        routeLibraryMessages();
        gsf_init();
    });
}

void setGsfMessageSink(std::function<void(const QString&)> newSink)
{
    const std::lock_guard lock(sinkMutex());
    sink() = std::move(newSink);
}

} // namespace nubo::database
