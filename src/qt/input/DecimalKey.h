#pragma once

class QLineEdit;

namespace vardel {

// Where the locale's decimals have a comma, the comma that is typed into a box for a number becomes
// the point that it means here; that of the number pad does in every locale.
void TakeCommaAsPoint(QLineEdit& box);

}  // namespace vardel
