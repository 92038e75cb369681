#pragma once

#include <QString>

/// How many characters people count in a text: an accented letter or an emoji is one, whatever it is made of.
int characterCount(const QString& text);
