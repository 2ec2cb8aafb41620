#pragma once

/// The road of files of formats "4.00.00" and "3.93.00" to "04.01.01": each kind of text had a table of its
/// own; here they are folded into Items.
namespace u16Convert4 {

/// Brings the file that is being opened to "04.01.01" and marks it "Standard", so that this edition refuses
/// it once it has been converted. Throws DatabaseError, with the steps before the failure made.
void Convert4to41();

} // namespace u16Convert4
