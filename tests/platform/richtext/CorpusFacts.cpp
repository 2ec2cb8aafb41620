#include "platform/richtext/CorpusFacts.h"

#include "platform/richtext/CodePages.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>

namespace rich {

using namespace platform::richtext;
using nlohmann::json;

namespace {

char32_t Plain(char32_t character)
{
    if (character == 0xA0) return U' ';
    return character == 0x2011 ? U'-' : character;
}

bool IsDropped(char32_t character)
{
    const bool isPrivate = character >= 0xE000 && character <= 0xF8FF;
    return character == 0xAD || character == 0x200B || character == 0xFEFF || isPrivate;
}

/// Text with what the corpus drops dropped.
std::string Normal(std::string_view text)
{
    std::string normal;
    while (!text.empty()) {
        const char32_t character = reader::TakeCharacter(text);
        if (!IsDropped(character)) reader::AppendUtf8(normal, Plain(character));
    }
    return normal;
}

std::string WithoutEndBlanks(std::string line)
{
    line.erase(line.find_last_not_of(" \t") + 1);
    return line;
}

/// Every paragraph, those in cells included.
void ForEachParagraph(const std::vector<Block>& blocks, const std::function<void(const Paragraph&)>& visit)
{
    for (const Block& block : blocks) {
        if (const Paragraph* paragraph = block.AsParagraph()) {
            visit(*paragraph);
            continue;
        }
        for (const TableRow& row : block.AsTable()->rows) {
            for (const TableCell& cell : row.cells)
                ForEachParagraph(cell.blocks, visit);
        }
    }
}

std::string TextOf(const Paragraph& paragraph)
{
    std::string text;
    for (const Run& run : paragraph.runs)
        text += Normal(run.text);
    return text;
}

std::string WithoutFrontBlanks(std::string text)
{
    return text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
}

bool IsVisible(std::string_view text) { return text.find_first_not_of(" \t\n") != std::string_view::npos; }

/// The looks of the visible characters in a stretch of a paragraph.
std::vector<CharacterFormat> LooksIn(const Paragraph& paragraph, std::size_t begin, std::size_t end)
{
    std::vector<CharacterFormat> looks;
    std::size_t at = 0;
    for (const Run& run : paragraph.runs) {
        const std::string text = Normal(run.text);
        const std::size_t from = std::max(begin, at);
        const std::size_t to = std::min(end, at + text.size());
        if (from < to && IsVisible(std::string_view(text).substr(from - at, to - from)))
            looks.push_back(run.format);
        at += text.size();
    }
    return looks;
}

json ColorText(const Color& color)
{
    if (!color) return nullptr;
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(*color));
    return text.data();
}

json UnderlineText(Underline underline)
{
    constexpr const char* names[] = {
        "none", "single", "double", "dotted", "dash", "dashdot", "dashdotdot", "wave", "words", "thick"};
    return names[static_cast<std::size_t>(underline)];
}

json PositionText(VerticalPosition position)
{
    constexpr const char* names[] = {"normal", "super", "sub"};
    return names[static_cast<std::size_t>(position)];
}

/// A look under the names of the corpus.
json Described(const CharacterFormat& look)
{
    return {{"bold", look.bold},
            {"italic", look.italic},
            {"strike", look.strike},
            {"underline", UnderlineText(look.underline)},
            {"caps", look.capitals == Capitals::All},
            {"scaps", look.capitals == Capitals::Small},
            {"size", static_cast<double>(look.halfPoints) / 2},
            {"font", look.font},
            {"color", ColorText(look.color)},
            {"background", ColorText(look.background)},
            {"va", PositionText(look.position)},
            {"href", look.href.empty() ? json(nullptr) : json(look.href)}};
}

bool AgreesWith(const json& described, const json& fact)
{
    return std::ranges::all_of(fact.items(), [&](const auto& item) {
        return !described.contains(item.key()) || described[item.key()] == item.value();
    });
}

bool RunHoldsAt(const Paragraph& paragraph, const json& fact, std::size_t at, std::size_t length)
{
    const std::string before = fact.value("after", "");
    const std::string text = TextOf(paragraph);
    if (!text.substr(0, at).ends_with(before)) return false;
    const std::vector<CharacterFormat> looks = LooksIn(paragraph, at, at + length);
    const auto agrees = [&](const CharacterFormat& look) { return AgreesWith(Described(look), fact); };
    return !looks.empty() && std::ranges::all_of(looks, agrees);
}

bool RunHolds(const json&, const RichDocument& document, const json& fact)
{
    const auto wanted = fact["run"].get<std::string>();
    bool holds = false;
    ForEachParagraph(document.blocks, [&](const Paragraph& paragraph) {
        const std::string text = TextOf(paragraph);
        for (std::size_t at = text.find(wanted); at != std::string::npos; at = text.find(wanted, at + 1))
            holds = holds || RunHoldsAt(paragraph, fact, at, wanted.size());
    });
    return holds;
}

json AlignText(Alignment alignment)
{
    constexpr const char* names[] = {"left", "center", "right", "justify"};
    return names[static_cast<std::size_t>(alignment)];
}

json KindText(const RichDocument& document, const ParagraphFormat& format)
{
    const ListLevel* level = LevelOf(document, format);
    if (level == nullptr || level->kind == ListKind::None) return nullptr;
    return level->kind == ListKind::Bullet ? "bullet" : "number";
}

json TabTexts(const std::vector<TabStop>& tabs)
{
    constexpr const char* names[] = {"left", "right", "center", "decimal", "bar"};
    json texts = json::array();
    for (const TabStop& tab : tabs)
        texts.push_back({tab.position, names[static_cast<std::size_t>(tab.kind)]});
    return texts;
}

json Described(const RichDocument& document, const ParagraphFormat& format)
{
    json described = {{"align", AlignText(format.alignment)},
                      {"list", KindText(document, format)},
                      {"level", format.level},
                      {"indent_left", format.indentLeft},
                      {"indent_first", format.indentFirst},
                      {"indent_right", format.indentRight},
                      {"space_before", format.spaceBefore},
                      {"space_after", format.spaceAfter},
                      {"tabs", TabTexts(format.tabs)}};
    const bool isMultiple = format.lineSpacing.rule == LineSpacingRule::Multiple;
    if (isMultiple) described["line_spacing"] = format.lineSpacing.value / 240.0;
    return described;
}

bool ParagraphHolds(const json&, const RichDocument& document, const json& fact)
{
    const auto beginning = fact["paragraph"].get<std::string>();
    bool holds = false;
    ForEachParagraph(document.blocks, [&](const Paragraph& paragraph) {
        const bool isMeant = WithoutFrontBlanks(TextOf(paragraph)).starts_with(beginning);
        holds = holds || (isMeant && AgreesWith(Described(document, paragraph.format), fact));
    });
    return holds;
}

bool ListItemsHold(const json&, const RichDocument& document, const json& fact)
{
    std::vector<std::string> found;
    std::vector<std::string> wanted;
    for (const json& item : fact["list_items"])
        wanted.push_back(item.dump());
    ForEachParagraph(document.blocks, [&](const Paragraph& paragraph) {
        if (paragraph.format.list == 0) return;
        const json kind = KindText(document, paragraph.format);
        std::string text = WithoutFrontBlanks(TextOf(paragraph));
        const std::size_t place = found.size();
        if (place < fact["list_items"].size()) {
            const auto start = fact["list_items"][place][0].get<std::string>();
            if (text.starts_with(start)) text = start;
        }
        found.push_back(json({text, kind, paragraph.format.level}).dump());
    });
    constexpr std::size_t most = 40; // the corpus writes down no more
    if (wanted.size() == most && found.size() > most) found.resize(most);
    return found == wanted;
}

std::vector<const Table*> TablesOf(const RichDocument& document)
{
    std::vector<const Table*> tables;
    for (const Block& block : document.blocks) {
        if (block.AsTable() != nullptr) tables.push_back(block.AsTable());
    }
    return tables;
}

/// What a cell shows: the text of a document of one row, joined as the corpus joins it.
std::string CellText(const TableCell& cell)
{
    RichDocument document;
    document.blocks.push_back(Block{Table{{TableRow{{cell}}}}});
    std::string text = Normal(PlainText(document));
    for (std::size_t at = text.find("  "); at != std::string::npos; at = text.find("  "))
        text.erase(at, 1);
    return WithoutEndBlanks(text);
}

bool CellHolds(const Table& table, const json& cell)
{
    const auto row = cell["row"].get<std::size_t>();
    const auto place = cell["cell"].get<std::size_t>();
    if (row >= table.rows.size() || place >= table.rows[row].cells.size()) return false;
    return CellText(table.rows[row].cells[place]) == cell["text"].get<std::string>();
}

bool TableHolds(const json&, const RichDocument& document, const json& fact)
{
    const json& wanted = fact["table"];
    const std::vector<const Table*> tables = TablesOf(document);
    const auto index = wanted["index"].get<std::size_t>();
    if (index >= tables.size()) return false;
    const Table& table = *tables[index];
    const auto size = [](const TableRow& row) { return row.cells.size(); };
    const std::size_t columns = size(*std::ranges::max_element(table.rows, {}, size));
    if (wanted.contains("rows") && wanted["rows"] != table.rows.size()) return false;
    if (wanted.contains("columns") && wanted["columns"] != columns) return false;
    return !wanted.contains("cell") || CellHolds(table, wanted["cell"]);
}

json Described(const Picture& picture)
{
    constexpr const char* names[] = {"png", "jpeg", "dib", "emf", "wmf", "pict"};
    constexpr std::size_t bitmapFileHeader = 14; // which the document had to add
    const std::size_t added = picture.kind == PictureKind::Bmp ? bitmapFileHeader : 0;
    return {{"picture", names[static_cast<std::size_t>(picture.kind)]},
            {"bytes", picture.bytes.size() - added},
            {"picwgoal", picture.widthGoal},
            {"pichgoal", picture.heightGoal},
            {"picscalex", picture.scaleX},
            {"picscaley", picture.scaleY}};
}

bool PictureHolds(const json&, const RichDocument& document, const json& fact)
{
    bool holds = false;
    ForEachParagraph(document.blocks, [&](const Paragraph& paragraph) {
        for (const Run& run : paragraph.runs)
            holds = holds || (run.picture != nullptr && AgreesWith(Described(*run.picture), fact));
    });
    return holds;
}

bool AbsentHolds(const json&, const RichDocument& document, const json& fact)
{
    return PlainText(document).find(fact["absent"].get<std::string>()) == std::string::npos;
}

bool ContainsHolds(const json&, const RichDocument& document, const json& fact)
{
    return PlainText(document).find(fact["contains"].get<std::string>()) != std::string::npos;
}

// A line of such a file is the sign, a tab, its byte in digits.
bool SymbolHolds(const json&, const RichDocument& document, const json& fact)
{
    const std::string line =
        fact["unicode"].get<std::string>() + "\t" + std::to_string(fact["symbol"].get<int>());
    return ("\n" + PlainText(document)).find("\n" + line + "\t") != std::string::npos;
}

bool BlocksHold(const json&, const RichDocument& document, const json& fact)
{
    std::size_t paragraphs = 0;
    ForEachParagraph(document.blocks, [&](const Paragraph&) { ++paragraphs; });
    return fact["blocks"] == paragraphs;
}

bool DefaultHolds(const json&, const RichDocument& document, const json& fact)
{
    const Paragraph* paragraph = document.blocks.front().AsParagraph();
    return paragraph != nullptr && AgreesWith(Described(paragraph->emptyFormat), fact["default"]);
}

// Nothing that might be opened comes through.
bool NoAccessHolds(const json&, const RichDocument& document, const json& fact)
{
    const std::string written = WriteRtf(document);
    return std::ranges::none_of(fact["no_access"], [&](const json& name) {
        return written.find(name.get<std::string>()) != std::string::npos;
    });
}

bool SavedWithoutHolds(const json&, const RichDocument& document, const json& fact)
{
    const std::string written = WriteRtf(document);
    return std::ranges::none_of(fact["saved_without"], [&](const json& word) {
        return written.find(word.get<std::string>()) != std::string::npos;
    });
}

bool StableHolds(const json&, const RichDocument& document, const json&)
{
    const std::string written = WriteRtf(document);
    return WriteRtf(ReadRtf(written)) == written;
}

// Notes are for readers; time and memory are measured where the file is read.
bool NothingToHold(const json&, const RichDocument&, const json&) { return true; }

using Check = bool (*)(const json&, const RichDocument&, const json&);

const std::map<std::string, Check>& Checks()
{
    static const std::map<std::string, Check> checks = {{"run", RunHolds},
                                                        {"paragraph", ParagraphHolds},
                                                        {"list_items", ListItemsHold},
                                                        {"table", TableHolds},
                                                        {"picture", PictureHolds},
                                                        {"absent", AbsentHolds},
                                                        {"contains", ContainsHolds},
                                                        {"symbol", SymbolHolds},
                                                        {"blocks", BlocksHold},
                                                        {"default", DefaultHolds},
                                                        {"no_access", NoAccessHolds},
                                                        {"saved_without", SavedWithoutHolds},
                                                        {"stable", StableHolds},
                                                        {"note", NothingToHold},
                                                        {"limit", NothingToHold}};
    return checks;
}

std::string FactName(const json& fact)
{
    for (const auto& [name, check] : Checks()) {
        if (fact.contains(name)) return name;
    }
    return {};
}

/// Lines of a text without texts that may be there or not.
std::vector<std::string> RequiredLines(const json& file, const std::string& text)
{
    std::vector<std::string> lines = CorpusLines(text);
    for (const json& optional : file.value("optional_text", json::array())) {
        const auto words = optional.get<std::string>();
        for (std::string& line : lines) {
            if (const std::size_t at = line.find(words); at != std::string::npos)
                line.erase(at, words.size());
        }
    }
    return lines;
}

/// Lines with the parts cut away that the corpus does not tell of.
void CutUntold(const json& file, std::vector<std::string>& lines)
{
    for (std::string& line : lines) {
        if (file.contains("text_note")) line.erase(0, line.find('\t')); // the symbol itself
        if (!file.contains("optional_characters")) continue;
        std::erase_if(line, [](char sign) { return static_cast<unsigned char>(sign) >= 0x80; });
        line.erase(0, line.find_first_not_of(' '));
    }
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        if (IsVisible(line)) text += WithoutEndBlanks(line) + "\n";
    }
    return text;
}

} // namespace

std::vector<std::string> CorpusLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::string_view left = text;
    while (!left.empty()) {
        const std::size_t length = std::min(left.find('\n'), left.size());
        std::string line = WithoutEndBlanks(Normal(left.substr(0, length)));
        for (std::size_t at = line.find(" \t"); at != std::string::npos; at = line.find(" \t"))
            line.erase(at, 1); // at the end of a cell
        if (!line.empty()) lines.push_back(line);
        left.remove_prefix(std::min(length + 1, left.size()));
    }
    return lines;
}

std::vector<std::string> BrokenFacts(const json& file, const RichDocument& document)
{
    std::vector<std::string> broken;
    std::vector<std::string> lines = RequiredLines(file, PlainText(document));
    std::vector<std::string> wanted = RequiredLines(file, file["text"].get<std::string>());
    CutUntold(file, lines);
    const std::string text = Joined(lines);
    if (text != Joined(wanted)) broken.push_back("text:\n" + text + "instead of:\n" + Joined(wanted));
    for (const json& fact : file["facts"]) {
        const auto check = Checks().find(FactName(fact));
        const bool holds = check != Checks().end() && check->second(file, document, fact);
        if (!holds) broken.push_back(fact.dump());
    }
    return broken;
}

} // namespace rich
