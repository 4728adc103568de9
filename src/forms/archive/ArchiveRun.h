#pragma once

#include "engine/curves/Curves.h"

namespace vardel {

class PlotForm;
class dbOperations;
struct SharedData;

// Stores the three models, computed from the form's boxes to its MaxDist, as one run of the
// archive. Asks for the archive where none was chosen yet, makes one of a new name after a
// question, and asks for a comment. Without an archive, or where a box holds no number, there is a
// message and nothing is stored; nor is anything where the session ends before the comment is
// given. A file that cannot be opened is reported by each step, and stays the one that was chosen.
void ArchiveRun(SharedData& shared, dbOperations& archive, PlotForm& form, Quantity quantity);

}  // namespace vardel
