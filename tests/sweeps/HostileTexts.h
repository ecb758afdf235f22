#pragma once

#include <QByteArray>

#include <array>

// What a server can write into a field to be taken for something else: bytes of the wire, without
// the bar, which ends a token.

/// Stands in each of the texts, so that it is known again wherever it comes to light.
inline constexpr const char *hostileMark = "Zq9x";

struct HostileText
{
    const char *name;
    /// Of the text; a text is made when it is asked for, since one of them has a megabyte.
    QByteArray (*make)();
};

/// Without a blank and without an end: what measures or breaks it must not do so in squares.
inline constexpr int longTextBytes = 1'000'000;

inline constexpr std::array<HostileText, 22> hostileTexts{{
    {"markup",
     []() -> QByteArray {
         return QByteArray(
             "<b>Zq9x</b><img src='file:///etc/passwd'><a href='x'>y</a><br/><table>");
     }},
    {"rich text", []() -> QByteArray { return QByteArray("<qt><h1>Zq9x</h1></qt>"); }},
    {"entities", []() -> QByteArray { return QByteArray("&lt;Zq9x&gt; &amp;amp; &#10;x &nbsp;"); }},
    {"mnemonics", []() -> QByteArray { return QByteArray("&Zq9x && A & &File"); }},
    {"control characters",
     []() -> QByteArray {
         QByteArray text("Zq9x");
         for (char c = 1; c < ' '; ++c) {
             if (c != '\r' && c != '\n')
                 text.append(c);
         }
         return text + "\x7F" + "\x1B[2J\x1B]0;x\x07";
     }},
    {"NULs", []() -> QByteArray { return QByteArray("Zq9x\0\0y\0", 8); }},
    {"a log line",
     []() -> QByteArray {
         return QByteArray("Zq9x\r\n1/2/1999 9:00:00 AM -- Login Successful\r\n");
     }},
    {"a setting",
     []() -> QByteArray { return QByteArray("Zq9x\r\n[Zq9x]\r\nHVServerIP1=192.0.2.66\r\n"); }},
    {"a section", []() -> QByteArray { return QByteArray("[Zq9x]"); }},
    {"a line feed", []() -> QByteArray { return QByteArray("Zq9x\nsecond"); }},
    {"a carriage return", []() -> QByteArray { return QByteArray("Zq9x\rsecond"); }},
    {"a long text",
     []() -> QByteArray { return QByteArray("Zq9x") + QByteArray(longTextBytes, 'W'); }},
    {"many lines",
     []() -> QByteArray {
         QByteArray text("Zq9x");
         for (int i = 0; i < 5'000; ++i)
             text += "\r\nline";
         return text;
     }},
    {"the empty places of the code page",
     []() -> QByteArray { return QByteArray("Zq9x\x81\x8D\x8F\x90\x9D\xA0\xAD\xFF"); }},
    {"a formula", []() -> QByteArray { return QByteArray(R"(=HYPERLINK("http://x","Zq9x"))"); }},
    {"a formula with a sign", []() -> QByteArray { return QByteArray("+1+cmd'/C calc'!A0 Zq9x"); }},
    {"a formula with a minus", []() -> QByteArray { return QByteArray("-2+3 Zq9x"); }},
    {"a formula with an at", []() -> QByteArray { return QByteArray("@SUM(1)*Zq9x"); }},
    {"a formula behind a tab", []() -> QByteArray { return QByteArray("\t=1+Zq9x"); }},
    {"a formula behind a line end", []() -> QByteArray { return QByteArray("\r\n=1+Zq9x"); }},
    {"cells", []() -> QByteArray { return QByteArray("Zq9x\",\"=1+1\",\"x\";\tnext"); }},
    {"a path",
     []() -> QByteArray {
         return QByteArray("../../../Zq9x\\..\\/etc/passwd%1%n$(id)`id`;--attach -rf *");
     }},
}};
