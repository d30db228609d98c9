#pragma once

namespace nubo::database {

// Initialises the compound-file library once per process.
void ensureGsf();

} // namespace nubo::database
