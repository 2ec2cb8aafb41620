#include "vexa-cli/ConsoleDesktop.h"

#include <ostream>

namespace vexa_cli {

using platform::Answer;
using platform::Buttons;

void ConsoleDesktop::StartAfresh()
{
    m_answeredNo = false;
    m_wordsShown.clear();
}

Answer ConsoleDesktop::Show(const platform::Message& message)
{
    if (!message.title.empty()) {
        m_err << message.title << '\n';
    }
    for (const std::string& line : message.lines) {
        m_err << line << '\n';
        m_wordsShown.push_back(line);
    }
    m_err.flush();
    switch (message.buttons) {
    case Buttons::Ok: return Answer::Ok;
    case Buttons::OkCancel: return m_yes ? Answer::Ok : Refusal(Answer::Cancel);
    case Buttons::YesNo: return m_yes ? Answer::Yes : Refusal(Answer::No);
    case Buttons::StayLeave: break; // asked when a window closes: there is none to stay in
    }
    return Answer::Leave;
}

Answer ConsoleDesktop::Refusal(Answer answer)
{
    m_answeredNo = true;
    return answer;
}

} // namespace vexa_cli
