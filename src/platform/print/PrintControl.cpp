#include "platform/print/PrintControl.h"

#include "platform/print/PrintState.h"
#include "platform/print/RtfExport.h"

#include <algorithm>
#include <utility>

namespace platform::print {

namespace {

constexpr Integer printPage = 8;

/// Drops a document whose run is cancelled or fails, so that no pages are left.
template <class Action> void OrDrop(PrintControl& control, const Action& action)
{
    try {
        action();
    } catch (...) {
        control.Abandon();
        throw;
    }
}

} // namespace

PrintControl::PrintControl() : m_state(std::make_unique<State>()) {}

PrintControl::~PrintControl() = default;

void PrintControl::StartDoc()
{
    State& state = *m_state;
    state.Drop();
    state.settings = state.paper;
    state.document.pageWidth = state.settings.pageWidth;
    state.document.pageHeight = state.settings.pageHeight;
    state.isOpen = true;
    state.previewPage = 1;
    state.flow.Begin();
}

void PrintControl::EndDoc()
{
    State& state = *m_state;
    if (!state.isOpen) return;
    OrDrop(*this, [&] {
        state.EndLine();
        state.flow.End();
    });
    state.isOpen = false;
    if (!state.exportFile.empty()) {
        WriteRtfFile(state.document, state.exportFile);
    } else if (!state.preview && state.printer) {
        state.printer(state.document, 0, static_cast<Long>(state.document.pages.size()) - 1);
    }
}

void PrintControl::NewPage()
{
    State& state = *m_state;
    if (!state.isOpen) return;
    OrDrop(*this, [&] {
        state.EndLine();
        state.x.reset();
        state.flow.NewPage();
    });
}

void PrintControl::NewColumn()
{
    State& state = *m_state;
    if (!state.isOpen) return;
    OrDrop(*this, [&] {
        state.EndLine();
        state.x.reset();
        state.flow.Note(FlowColumnBreak());
        state.flow.NextColumn();
    });
}

void PrintControl::Abandon() { m_state->Drop(); }

bool PrintControl::IsOpen() const { return m_state->isOpen; }

void PrintControl::OnNewPage(std::function<void()> handler) { m_state->flow.onNewPage = std::move(handler); }

void PrintControl::OnProgress(std::function<bool(Long)> handler)
{
    m_state->flow.onProgress = std::move(handler);
}

const Document& PrintControl::Pages() const { return m_state->document; }

void PrintControl::SetTitle(std::string title) { m_state->document.title = std::move(title); }

void PrintControl::AddBookmark(std::string title) { m_state->heading = std::move(title); }

bool PrintControl::Preview() const { return m_state->preview; }

void PrintControl::SetPreview(bool preview) { m_state->preview = preview; }

void PrintControl::SetAction(Integer action)
{
    const Long page = PreviewPage();
    if (action == printPage && page > 0 && m_state->printer)
        m_state->printer(m_state->document, page - 1, page - 1);
}

Long PrintControl::PreviewPage() const
{
    return std::min(m_state->previewPage, static_cast<Long>(m_state->document.pages.size()));
}

void PrintControl::SetPreviewPage(Long page) { m_state->previewPage = std::max<Long>(1, page); }

void PrintControl::SetPrinter(std::function<void(const Document&, Long, Long)> printer)
{
    m_state->printer = std::move(printer);
}

std::string PrintControl::ExportFile() const { return m_state->exportFile; }

void PrintControl::SetExportFile(std::string path) { m_state->exportFile = std::move(path); }

Long PrintControl::ExportFormat() const { return m_state->exportFormat; }

void PrintControl::SetExportFormat(Long format) { m_state->exportFormat = format; }

void PrintControl::SetExportRaw(std::string text)
{
    if (!m_state->isOpen) return;
    m_state->EndLine();
    m_state->flow.Note(FlowRaw{std::move(text)});
}

} // namespace platform::print
