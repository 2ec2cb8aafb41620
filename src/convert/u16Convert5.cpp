#include "convert/u16Convert5.h"

#include "convert/ConversionQuestion.h"

namespace u16Convert5 {

bool QueryConvertTo5()
{
    return ConversionQuestion::Ask({"All ORLN Stage I and Periodic Assessment data will be lost.",
                                    "All ORLN Stage II and most Stage III report sections will be saved.",
                                    "All VEXA Safety issues will be lost.",
                                    "All values for VEXA Threatened Items will be lost."},
                                   "All other VEXA data will be saved.");
}

} // namespace u16Convert5
