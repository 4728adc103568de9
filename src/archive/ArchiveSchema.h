#pragma once

namespace vardel {

// The statements of src/archive/schema.sql, which make the tables of an empty archive.
extern const char* const ArchiveSchema;

}  // namespace vardel
