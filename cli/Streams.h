#pragma once

#include <string>

#include "cli/batch/Batch.h"

// Files and the standard streams. What fails throws std::system_error with the name in it.

namespace vardel::cli {

// Opens a file; "-" is standard input.
Source SourceOf(const std::string& path);

Sink StandardOutput();
Sink StandardError();  // what cannot be written there is lost, and nothing fails

// Whether somebody watches standard error while the output goes elsewhere.
bool ProgressIsSeen();

}  // namespace vardel::cli
