#include "common/ConnectConversions.h"

#include "convert/u16Convert5.h"
#include "convert/u16Convert6.h"
#include "session/SessionLinks.h"

void ConnectConversions()
{
    Links().QueryConvertTo5 = u16Convert5::QueryConvertTo5;
    Links().QueryConvertTo6 = u16Convert6::QueryConvertTo6;
}
