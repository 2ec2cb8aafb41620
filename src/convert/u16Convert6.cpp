#include "convert/u16Convert6.h"

#include "convert/ConversionQuestion.h"

namespace u16Convert6 {

bool QueryConvertTo6()
{
    return ConversionQuestion::Ask({"Some ORLN Size-up and Stage I data will be lost.",
                                    "All values for VEXA Threatened Items will be lost."},
                                   "All other data will be saved.");
}

} // namespace u16Convert6
