#pragma once

#include <QList>
#include <QPalette>
#include <QTextCharFormat>

namespace platform {

class Speller;

/// A word within a text, in the toolkit's characters.
struct TextPlace
{
    int start = 0;
    int length = 0;
};

/// The words of a text that are not right, in order.
QList<TextPlace> WrongWordsIn(Speller& speller, const QString& text);

/// What marks such a word: the underline that everyone knows, readable on light and dark.
QTextCharFormat WrongWordFormat(const QPalette& palette);

} // namespace platform
