#pragma once

class CDialog;

namespace ts
{

/// Makes the dialog's combo boxes as high as its other fields, so that the texts of a line stand beside each
/// other. By themselves they are as high as their font needs, which is less the more dots an inch has.
void FitComboBoxes(const CDialog& dialog);

} // namespace ts
