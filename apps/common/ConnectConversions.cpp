#include "common/ConnectConversions.h"

#include "convert/u16Convert4.h"
#include "convert/u16Convert5.h"
#include "convert/u16Convert6.h"
#include "session/SessionLinks.h"

void ConnectConversions()
{
    SessionLinks& links = Links();
    links.QueryConvertTo5 = u16Convert5::QueryConvertTo5;
    links.QueryConvertTo6 = u16Convert6::QueryConvertTo6;
    links.Convert4to41 = u16Convert4::Convert4to41;
    links.Convert41to5 = u16Convert5::Convert41to5;
    links.Convert5to6 = u16Convert6::Convert5to6;
}
