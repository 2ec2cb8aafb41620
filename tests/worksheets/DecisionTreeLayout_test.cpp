#include "model/g51Alternatives.h"
#include "support/TestSession.h"
#include "worksheets/DecisionTreeLayout.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace {

using Trees = std::vector<DecisionTreeDrawing>;

QFont FontOf(const char* family, double points)
{
    QFont font{QString::fromUtf8(family)};
    font.setPointSizeF(points);
    return font;
}

/// What is painted of a tree, one byte a pixel: 0 where nothing is.
class Ink
{
public:
    Ink(const QSizeF& size, const std::function<void(QPainter&)>& paint)
        : m_image(static_cast<int>(size.width()) + 40,
                  static_cast<int>(size.height()) + 40,
                  QImage::Format_Alpha8)
    {
        m_image.fill(0);
        QPainter painter(&m_image);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
    }
    bool At(int x, int y) const { return m_image.constScanLine(y)[x] != 0; }
    /// The pixels that both cover.
    int SharedWith(const Ink& other) const
    {
        int shared = 0;
        for (int y = 0; y < m_image.height(); ++y) {
            for (int x = 0; x < m_image.width(); ++x) {
                shared += At(x, y) && other.At(x, y) ? 1 : 0;
            }
        }
        return shared;
    }
    int Count() const { return SharedWith(*this); }
    /// The pixels that the eye sees as ink and that stand next to such a one of the other.
    int TouchedBy(const Ink& other) const
    {
        int touched = 0;
        for (int y = 1; y < m_image.height() - 1; ++y) {
            for (int x = 1; x < m_image.width() - 1; ++x) {
                touched += IsDark(x, y) && other.IsDarkAround(x, y) ? 1 : 0;
            }
        }
        return touched;
    }

private:
    bool IsDark(int x, int y) const { return m_image.constScanLine(y)[x] > 64; }
    bool IsDarkAround(int x, int y) const
    {
        for (int i = 0; i < 9; ++i) {
            if (IsDark(x + i % 3 - 1, y + i / 3 - 1)) return true;
        }
        return false;
    }

    QImage m_image;
};

class DecisionTreeLayoutTest : public support::TestSession
{
protected:
    /// The three trees of the sample, the second with a Fallback.
    Trees SampleTrees(const std::string& sql = {})
    {
        OpenSample("smith-creek", sql);
        Trees trees;
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            trees.push_back(DrawDecisionTree(*alternative));
        }
        return trees;
    }
    /// The same with the longest texts that a fire may bring and the widest percent where there is least
    /// room.
    Trees WideTrees()
    {
        return SampleTrees(
            "UPDATE Outcomes SET FireSize = 12500000, ControlTime = 1200, AdjustedCost = 123456789000, "
            "CostSource = 8;"
            "UPDATE Outcomes SET Success = 0 WHERE ChildIndex = 1 AND ParentKey > 0;"
            "UPDATE Items SET Heading = 'MWMWMW Wagon quay jumpy WWWWWWWWWWWWWW' WHERE ParentKey = 26");
    }
    /// Fails where pixels of a text and of a line, or of two texts, coincide.
    static void ExpectClear(const DecisionTreeDrawing& tree, const DecisionTreeScale& scale)
    {
        const QSizeF size = SizeOf(tree, scale);
        const Ink lines(size, [&](QPainter& painter) { PaintLines(painter, tree, scale); });
        const Ink texts(size, [&](QPainter& painter) { PaintTexts(painter, tree, scale); });
        EXPECT_GT(lines.Count(), 0);
        EXPECT_EQ(lines.SharedWith(texts), 0);
        EXPECT_EQ(lines.TouchedBy(texts), 0);
        int sum = 0;
        for (const auto& text : tree.texts) {
            sum += Ink(size, [&](QPainter& painter) { PaintTexts(painter, {{text}, {}}, scale); }).Count();
        }
        EXPECT_EQ(texts.Count(), sum);
    }
};

const QFont kFonts[] = {
    FontOf("DejaVu Sans", 8),
    FontOf("DejaVu Sans", 9),
    FontOf("DejaVu Sans", 10),
    FontOf("DejaVu Sans", 13.5),
    FontOf("DejaVu Sans", 20),
    FontOf("Liberation Sans", 9),
    FontOf("Liberation Sans", 16),
    FontOf("DejaVu Serif", 11),
    FontOf("Liberation Mono", 10),
};

TEST_F(DecisionTreeLayoutTest, ReadableScale_NothingTouchesAtAnyFont)
{
    for (const Trees& trees : {SampleTrees(), WideTrees()}) {
        for (const QFont& font : kFonts) {
            SCOPED_TRACE(font.toString().toStdString());
            const DecisionTreeScale scale = ReadableScale(trees, font);
            for (const DecisionTreeDrawing& tree : trees) {
                EXPECT_EQ(CountTouches(tree, scale), 0);
                ExpectClear(tree, scale);
            }
        }
    }
}

TEST_F(DecisionTreeLayoutTest, RowsHoldTheirLetters)
{
    const Trees trees = SampleTrees();
    for (const QFont& font : kFonts) {
        EXPECT_GE(180 * ReadableScale(trees, font).down, QFontMetricsF(font).height());
    }
}

TEST_F(DecisionTreeLayoutTest, LongTexts_WidenTheColumns)
{
    const QFont font = FontOf("DejaVu Sans", 9);
    const DecisionTreeScale usual = ReadableScale(SampleTrees(), font);
    const DecisionTreeScale wide = ReadableScale(WideTrees(), font);
    EXPECT_GT(wide.across, usual.across);
    EXPECT_EQ(wide.down, usual.down);
}

TEST_F(DecisionTreeLayoutTest, TooClose_IsCounted)
{
    const Trees trees = SampleTrees();
    DecisionTreeScale scale = ReadableScale(trees, FontOf("DejaVu Sans", 9));
    scale.across /= 2;
    EXPECT_GT(CountTouches(trees[1], scale), 0);
}

TEST_F(DecisionTreeLayoutTest, SmallRoom_WindowFontAndScrolling)
{
    const Trees trees = SampleTrees();
    const QFont font = FontOf("DejaVu Sans", 9);
    const DecisionTreeScale scale = FittingScale(trees, font, {300, 100});
    EXPECT_EQ(scale.font.pointSizeF(), 9);
    EXPECT_GT(SizeOf(trees, scale).width(), 300);
    EXPECT_EQ(scale.across, ReadableScale(trees, font).across);
}

TEST_F(DecisionTreeLayoutTest, LargerRoom_LargerTreeThatFits)
{
    const Trees trees = SampleTrees();
    const QFont font = FontOf("DejaVu Sans", 9);
    for (const QSizeF room : {QSizeF(1200, 500), QSizeF(1500, 400), QSizeF(1900, 450)}) {
        const DecisionTreeScale scale = FittingScale(trees, font, room);
        EXPECT_GT(scale.font.pointSizeF(), 9);
        EXPECT_LE(SizeOf(trees, scale).width(), room.width());
        EXPECT_LE(SizeOf(trees, scale).height(), room.height());
        ExpectClear(trees[1], scale);
    }
}

TEST_F(DecisionTreeLayoutTest, HugeRoom_NoMoreThanTwiceTheFont)
{
    const DecisionTreeScale scale = FittingScale(SampleTrees(), FontOf("DejaVu Sans", 9), {9000, 9000});
    EXPECT_EQ(scale.font.pointSizeF(), 18);
}

TEST_F(DecisionTreeLayoutTest, FontInPixels_GrowsToo)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    EXPECT_EQ(FittingScale(SampleTrees(), font, {9000, 9000}).font.pixelSize(), 24);
}

TEST_F(DecisionTreeLayoutTest, RoomInHeight_SetsRowsApart)
{
    const Trees trees = SampleTrees();
    const QFont font = FontOf("DejaVu Sans", 9);
    const double least = ReadableScale(trees, font).down;
    const double width = SizeOf(trees, ReadableScale(trees, font)).width();
    EXPECT_GT(FittingScale(trees, font, {width, 5000}).down, 1.2 * least);
    EXPECT_EQ(FittingScale(trees, font, {width, 100}).down, least);
}

// Signs stacked above and below a letter reach into the lines at every scale; the tree is then drawn as
// usual.
TEST_F(DecisionTreeLayoutTest, LettersHigherThanTheirRow_TreeStaysInProportion)
{
    const Trees usual = SampleTrees();
    Trees trees = usual;
    trees[1].texts[0].text = "A\u0301\u0302\u0303\u0304\u0306\u0307\u0308\u030a\u030b\u030c";
    const QFont font = FontOf("DejaVu Sans", 9);
    EXPECT_LT(ReadableScale(trees, font).across, 2 * ReadableScale(usual, font).across);
}

TEST_F(DecisionTreeLayoutTest, NoTrees_NoSize)
{
    const DecisionTreeScale scale = FittingScale({}, FontOf("DejaVu Sans", 9), {800, 600});
    EXPECT_TRUE(SizeOf(Trees(), scale).isEmpty());
}

} // namespace
