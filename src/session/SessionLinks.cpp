#include "session/SessionLinks.h"

SessionLinks& Links()
{
    static SessionLinks links;
    return links;
}
