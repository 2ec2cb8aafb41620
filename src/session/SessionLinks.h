#pragma once

#include "platform/base/Numbers.h"

#include <functional>
#include <string>

/// What the session must call above itself. The programs fill it once at start; an empty member does nothing.
struct SessionLinks
{
    // The stores of model and values, dropped by ClearAllStores in its order.
    std::function<void()> ReleaseFMUs;
    std::function<void()> ResetNVCResources;
    std::function<void()> ReleaseThreatenedItems;
    std::function<void()> ReleaseSRTypes;
    std::function<void()> ResetSafetyIssues;
    std::function<void()> ResetObjectives;
    std::function<void()> ResetAlternatives;
    std::function<void()> ResetLastSRUseKey;

    // The conversions of older formats: the questions (true on OK) and the steps. A step that is not there
    // yet ends the opening of such a file behind its question.
    std::function<bool()> QueryConvertTo5;
    std::function<bool()> QueryConvertTo6;
    std::function<void()> Convert4to41;
    std::function<void()> Convert41to5;
    std::function<void()> Convert5to6;

    // The screens.
    std::function<void()> LoadStartForm; // over the whole client area, with its panels
    std::function<void()> UnloadStartForm;
    std::function<void()> SetStartBackground; // panels hidden, lines shown
    std::function<void(const std::string&)> SetTitleBar;
    std::function<void()> InitializeMenus;
    std::function<void()> DisableEditMenu;
    std::function<void()> InitializeTabs;
    std::function<void(Long)> SetupIntroduction; // section number
    std::function<void()> UnloadCurrentWorksheet;
    std::function<void()> UnloadTabs;
    std::function<void()> DisableFileMenus; // Save As, Section, Worksheet
    std::function<void(const std::string&)> SetMainCaption;
    std::function<void()> UnloadMainWindow;
    std::function<void()> ClosePreview;
};

SessionLinks& Links();

/// Calls a link that is there.
template <class Link, class... Arguments> void Call(const Link& link, const Arguments&... arguments)
{
    if (link) {
        link(arguments...);
    }
}
