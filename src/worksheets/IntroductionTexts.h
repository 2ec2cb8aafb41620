#pragma once

#include <string>

/// What the Introduction worksheet shows for a section.
struct IntroductionText
{
    const char* title;
    std::string description; // marked up for a formatted label
    int helpContextID;
};

/// Sections below 3 get the Situation section's text, sections above 7 the Report section's.
IntroductionText IntroductionOf(int section);
