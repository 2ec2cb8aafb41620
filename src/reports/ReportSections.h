#pragma once

// The producers of the sections, each in the file of its name. All write to VSPrinter1 and throw
// DatabaseError, PrintCancelled and what the figures of the model throw.

namespace ReportSections {

/// 1: the front page, with the title table and the narrative in two columns.
void PrintSituation();
/// 2: what was selected and why, and the lines for the signatures.
void PrintDecisionSummary();
/// 3: a form to be filled in by hand during the fire.
void PrintDailyReview();
/// 4: the tree of objectives with their weights.
void PrintObjectives();
/// 5: the safety issues.
void PrintSafetyIssues();
/// 6: what each alternative is, and what its outcomes would be.
void PrintAlternatives();
/// 7: what suppression costs under every alternative: by land unit, where there are several, and by resource.
void PrintCosts();
/// 8: what the outcomes of every alternative would cost in resource values and threatened items.
void PrintImpacts();
/// 9: the safety ratings of every alternative.
void PrintSafetyAssessment();
/// 10: a probability tree of every alternative.
void PrintDecisionTree();

} // namespace ReportSections
