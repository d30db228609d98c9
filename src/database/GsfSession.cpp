#include "database/GsfSession.h"

#include <gsf/gsf-utils.h>

#include <mutex>

namespace nubo::database {

void ensureGsf()
{
    static std::once_flag once;
    std::call_once(once, [] { gsf_init(); });
}

} // namespace nubo::database
