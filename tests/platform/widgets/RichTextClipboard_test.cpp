#include "RichTextFixture.h"
#include "platform/base/Desktop.h"
#include "platform/richtext/Picture.h"
#include "platform/widgets/RichTextPictures.h"
#include "support/TempFolder.h"

#include <QBuffer>
#include <QDropEvent>
#include <QTextBlock>
#include <QTextList>
#include <QtEndian>

namespace {

class RichTextClipboard : public RichTextFixture
{
protected:
    RichTextClipboard() { platform::SetDesktop(&desktop); }
    ~RichTextClipboard() override { platform::SetDesktop(nullptr); }

    void Offer(const std::vector<std::pair<const char*, QByteArray>>& formats)
    {
        auto* data = new QMimeData;
        for (const auto& [name, bytes] : formats)
            data->setData(QString::fromLatin1(name), bytes);
        QApplication::clipboard()->setMimeData(data);
    }
    void Paste() { Press(Qt::Key_V, Qt::ControlModifier); }
    static QByteArray PictureBytes(const char* format, int side = 4)
    {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, format);
        return bytes;
    }
    /// The pictures in the text.
    std::vector<platform::richtext::Picture> Pictures()
    {
        std::vector<platform::richtext::Picture> found;
        for (QTextBlock block = body.document()->begin(); block.isValid(); block = block.next()) {
            for (auto at = block.begin(); !at.atEnd(); ++at) {
                const QString name = at.fragment().charFormat().toImageFormat().name();
                if (const auto picture = body.Document().Pool().Picture(name)) found.push_back(*picture);
            }
        }
        return found;
    }

    support::ScriptedDesktop desktop;
};

TEST_F(RichTextClipboard, RichText_ComesFirst)
{
    Offer({{"text/plain", "plain"}, {"text/html", "<b>page</b>"}, {"text/rtf", "{\\rtf1 {\\i rich}}"}});
    Paste();
    EXPECT_EQ(Stored().find("page"), std::string::npos);
    EXPECT_NE(Stored().find("\\i\\fs24 rich"), std::string::npos) << Stored();
}

TEST_F(RichTextClipboard, Page_ComesBeforePlainTextWithoutItsGround)
{
    Offer({{"text/plain", "plain"},
           {"text/html",
            "<p style='background:#ffff00;color:#222222'>a <b style='background-color:red'>bold</b></p>"}});
    Paste();
    EXPECT_EQ(Stored(), "\\pard a \\b bold\\b0\\par }");
}

TEST_F(RichTextClipboard, TextAndPicture_TheTextIsTaken)
{
    Offer({{"image/png", PictureBytes("PNG")}, {"text/plain", "12\t34"}});
    Paste();
    EXPECT_EQ(body.Text(), "12\t34");
    EXPECT_TRUE(Pictures().empty());
}

TEST_F(RichTextClipboard, PageOfAPictureAlone_ThePictureIsTaken)
{
    Offer({{"text/html", "<img src='https://example.org/a.png'>"}, {"image/png", PictureBytes("PNG")}});
    Paste();
    ASSERT_EQ(Pictures().size(), 1u);
}

TEST_F(RichTextClipboard, PageWithAddresses_NothingIsFetched)
{
    support::TempFolder folder;
    const std::string path = folder.File("there.png");
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(PictureBytes("PNG"));
    file.close();
    Offer({{"text/html", "<p>text<img src='file://" + QByteArray::fromStdString(path) + "'></p>"}});
    Paste();
    EXPECT_EQ(body.Text(), "text");
    EXPECT_TRUE(Pictures().empty());
    EXPECT_EQ(Stored().find("pict"), std::string::npos);
}

TEST_F(RichTextClipboard, LinksOfOtherSchemes_BecomePlainText)
{
    Offer({{"text/html", "<a href='file:///etc/passwd'>one</a> <a href='https://example.org/'>two</a>"}});
    Paste();
    EXPECT_EQ(Stored().find("passwd"), std::string::npos);
    EXPECT_NE(Stored().find("HYPERLINK \"https://example.org/\""), std::string::npos);
}

TEST_F(RichTextClipboard, PasteOfAnotherLook_WhatIsTypedNextLooksAsBefore)
{
    Type("a");
    Offer({{"text/rtf", "{\\rtf1{\\fonttbl{\\f0 Courier New;}}\\f0\\fs40\\b x}"}});
    Paste();
    Type("c");
    const std::string stored = Stored();
    EXPECT_EQ(stored.substr(stored.size() - 7), "c\\par }") << stored;
    EXPECT_FALSE(body.CharacterLook().bold);
    EXPECT_EQ(body.CharacterLook().font, "Arial");
    EXPECT_EQ(body.CharacterLook().halfPoints, 20);
}

TEST_F(RichTextClipboard, PasteAsPlainText_TakesTheLookBeside)
{
    Press(Qt::Key_B, Qt::ControlModifier);
    Type("a");
    Offer({{"text/rtf", "{\\rtf1 {\\i rich}}"}, {"text/plain", "rich\r\ntwo"}});
    Press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Stored(), "\\pard \\b arich\\b0\\par \\pard \\b two\\b0\\par }");
}

TEST_F(RichTextClipboard, OnePaste_IsOneStepOfUndo)
{
    Type("a");
    const std::string before = body.SaveToMemory();
    Offer({{"text/html", "<ul><li>one</li><li>two <i>three</i></li></ul>"}});
    Paste();
    EXPECT_NE(body.SaveToMemory(), before);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(body.SaveToMemory(), before);
}

TEST_F(RichTextClipboard, CutAndPaste_KeepEveryLook)
{
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    Type("one ");
    Press(Qt::Key_B, Qt::ControlModifier);
    Type("bold");
    Press(Qt::Key_Return);
    Press(Qt::Key_Tab);
    Type("two");
    const std::string before = body.SaveToMemory();
    SelectAll();
    body.Clip(1);
    EXPECT_EQ(body.Text(), "");
    body.LoadFromMemory("");
    body.Clip(3);
    EXPECT_EQ(body.SaveToMemory(), before);
}

TEST_F(RichTextClipboard, Copy_OffersRichTextAPageAndPlainText)
{
    Type("word");
    SelectAll();
    body.Clip(2);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(data->text(), QStringLiteral("word"));
    EXPECT_TRUE(data->html().contains(QStringLiteral("word")));
    EXPECT_TRUE(data->data(QStringLiteral("text/rtf")).startsWith("{\\rtf1"));
}

TEST_F(RichTextClipboard, Pictures_AreKeptByteForByte)
{
    for (const char* format : {"PNG", "JPEG"}) {
        body.LoadFromMemory("");
        const QByteArray bytes = PictureBytes(format);
        Offer({{*format == 'P' ? "image/png" : "image/jpeg", bytes}});
        Paste();
        ASSERT_EQ(Pictures().size(), 1u) << format;
        EXPECT_EQ(Pictures()[0].bytes, bytes.toStdString()) << format;
        EXPECT_EQ(StoredAgain(), body.SaveToMemory()) << format;
    }
}

TEST_F(RichTextClipboard, DroppedPictureFile_IsTaken)
{
    support::TempFolder folder;
    const QString path = QString::fromStdString(folder.File("fire.PNG"));
    const QByteArray bytes = PictureBytes("PNG");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const QPointF point(100, 100);
    QDragEnterEvent enter(point.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(body.viewport(), &enter);
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(body.viewport(), &drop);
    ASSERT_EQ(Pictures().size(), 1u);
    EXPECT_EQ(Pictures()[0].bytes, bytes.toStdString());
}

TEST_F(RichTextClipboard, PictureButton_TakesTheChosenFile)
{
    support::TempFolder folder;
    const QByteArray bytes = PictureBytes("JPEG");
    support::WriteFile(folder.File("fire.jpg"), bytes.toStdString());
    desktop.ExpectFile("Insert Picture", folder.File("fire.jpg"));
    Press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(Pictures().size(), 1u);
    EXPECT_EQ(Pictures()[0].bytes, bytes.toStdString());
    desktop.CheckDone();
}

TEST_F(RichTextClipboard, TextBesidePictures_StaysOnLoadingAgain)
{
    Type("before ");
    Offer({{"image/png", PictureBytes("PNG")}});
    Paste();
    Paste();
    Type(" after");
    EXPECT_EQ(Pictures().size(), 2u);
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Pictures().size(), 1u);
}

TEST_F(RichTextClipboard, BrokenPicture_IsRefusedInOneSentence)
{
    platform::Message told;
    told.lines = {platform::RichTextPictures::kRefused};
    desktop.Expect(told, platform::Answer::Ok);
    QByteArray bytes = PictureBytes("PNG", 40);
    bytes.truncate(bytes.size() / 2);
    Offer({{"image/png", bytes}});
    Paste();
    EXPECT_TRUE(Pictures().empty());
    EXPECT_EQ(body.SaveToMemory(), kEmptyBody);
    desktop.CheckDone();
}

/// The check of a PNG's chunk.
quint32 Check(const QByteArray& bytes)
{
    quint32 check = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        check ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            check = (check & 1u) != 0 ? (check >> 1) ^ 0xEDB88320u : check >> 1;
    }
    return ~check;
}

/// The head of a PNG alone, telling of this many dots.
QByteArray HeadOf(const QByteArray& png, quint32 width, quint32 height)
{
    QByteArray bytes = png;
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    qToBigEndian(Check(bytes.mid(12, 17)), bytes.data() + 29);
    return bytes;
}

TEST_F(RichTextClipboard, PictureOfTooManyDots_IsRefusedByItsHead)
{
    const QByteArray png = PictureBytes("PNG");
    ASSERT_NE(platform::RichTextPictures::Taken(HeadOf(png, 4, 4), 8640), nullptr);
    // Room for what the head tells would be more than the machine has.
    EXPECT_EQ(platform::RichTextPictures::Taken(HeadOf(png, 60000, 60000), 8640), nullptr);
    EXPECT_EQ(platform::RichTextPictures::Taken(HeadOf(png, 8001, 8000), 8640), nullptr);
}

TEST_F(RichTextClipboard, WidePicture_IsMadeAsWideAsTheText)
{
    const auto picture = platform::RichTextPictures::Taken(PictureBytes("PNG", 1000), 3000);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->widthGoal, 3000);
    EXPECT_EQ(picture->heightGoal, 3000);
    EXPECT_EQ(picture->width, 1000);
}

TEST_F(RichTextClipboard, PastedList_IsAListOfItsOwn)
{
    Press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Offer({{"text/html", "<p>between</p><ol><li>first</li><li>second</li></ol>"}});
    Paste();
    const QTextBlock last = body.document()->lastBlock();
    ASSERT_NE(last.textList(), nullptr);
    EXPECT_EQ(last.textList()->itemText(last), QStringLiteral("2."));
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

} // namespace
