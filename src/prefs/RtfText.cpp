#include "prefs/RtfText.h"

#include "core/Windows1252.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int smallestHalfPoints = 12;
constexpr int largestHalfPoints = 96;

// A group deeper than this keeps no look of its own: a file of ten million "{" must not take ten
// million of them.
constexpr size_t deepestLook = 1'000;

struct Look
{
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool skipped = false; ///< this group is no text
    int halfPoints = 24;
    int fallback = 1; ///< how many characters stand behind a \u for readers that do not know it
};

struct Symbol
{
    QByteArrayView word;
    char16_t character;
};

constexpr std::array<Symbol, 12> symbols{{
    {"par", u'\n'},
    {"line", QChar::LineSeparator},
    {"tab", u'\t'},
    {"bullet", u'\u2022'},
    {"emdash", u'\u2014'},
    {"endash", u'\u2013'},
    {"lquote", u'\u2018'},
    {"rquote", u'\u2019'},
    {"ldblquote", u'\u201C'},
    {"rdblquote", u'\u201D'},
    {"sect", u'\n'},
    {"page", u'\n'},
}};

// Groups that begin with one of these words hold no text of the body.
constexpr std::array<QByteArrayView, 15> noText{
    "fonttbl", "colortbl", "stylesheet", "info",    "pict",    "object",   "header",   "headerl",
    "headerr", "headerf",  "footer",     "footerl", "footerr", "footnote", "themedata"};

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

struct ControlWord
{
    QByteArrayView word;
    bool hasNumber = false;
    int number = 0;

    /// \b and \b1 switch on, \b0 switches off.
    bool on() const { return !hasNumber || number != 0; }
};

class Reader
{
public:
    explicit Reader(QByteArrayView text) : rtf(text) {}

    QList<RtfRun> Read();
    QList<RtfRun> ReadPlain();

private:
    bool full() const { return characters >= mostRtfCharacters; }
    void openGroup();
    void closeGroup();
    void control();
    ControlWord takeControlWord();
    void obey(const ControlWord &control);
    bool obeyLook(const ControlWord &control);
    void hexCharacter();
    void unicodeCharacter(int code);
    void passOver(qsizetype bytes);
    void plainByte(char byte);
    void add(char16_t character);
    void addFromFile(char16_t character);
    void newRun();
    static bool isShown(char16_t character);
    QList<RtfRun> finished();

    QByteArrayView rtf;
    qsizetype at = 0;
    qsizetype characters = 0;
    Look look;
    std::vector<Look> outer;
    size_t tooDeep = 0;   ///< open groups for which no look was kept
    int fallbackLeft = 0; ///< characters that a \u has made superfluous
    bool starred = false; ///< "\*" stands before the next control word
    QList<RtfRun> runs;
};

QList<RtfRun> Reader::Read()
{
    while (at < rtf.size() && !full()) {
        const char c = rtf[at++];
        switch (c) {
        case '{':
            openGroup();
            break;
        case '}':
            closeGroup();
            break;
        case '\\':
            control();
            break;
        case '\r':
        case '\n':
            break;
        default:
            plainByte(c);
        }
    }
    return finished();
}

QList<RtfRun> Reader::ReadPlain()
{
    while (at < rtf.size() && !full()) {
        const char c = rtf[at++];
        if (c == '\n')
            add(u'\n');
        else
            addFromFile(AnsiCharacter(static_cast<quint8>(c)).unicode());
    }
    return finished();
}

void Reader::openGroup()
{
    fallbackLeft = 0;
    starred = false;
    if (outer.size() < deepestLook)
        outer.push_back(look);
    else
        ++tooDeep;
}

void Reader::closeGroup()
{
    fallbackLeft = 0;
    starred = false;
    if (tooDeep > 0) {
        --tooDeep;
    } else if (!outer.empty()) {
        look = outer.back();
        outer.pop_back();
    }
}

/// What stands behind a backslash.
void Reader::control()
{
    if (at >= rtf.size())
        return;
    if (isLetter(rtf[at])) {
        const ControlWord control = takeControlWord();
        // A word at the very end may be the beginning of another one that was cut.
        if (at < rtf.size())
            obey(control);
        return;
    }
    const char c = rtf[at++];
    switch (c) {
    case '\'':
        hexCharacter();
        break;
    case '*':
        starred = true;
        break;
    case '\r':
    case '\n':
        add(u'\n');
        break;
    case '~':
        addFromFile(QChar::Nbsp);
        break;
    case '_':
        addFromFile(u'\u2011');
        break;
    case '\\':
    case '{':
    case '}':
        plainByte(c);
        break;
    default: // "\-" is a place to hyphenate; the rest has no meaning here
        break;
    }
}

ControlWord Reader::takeControlWord()
{
    ControlWord control;
    const qsizetype start = at;
    while (at < rtf.size() && isLetter(rtf[at]))
        ++at;
    control.word = rtf.sliced(start, at - start);
    const bool negative = at + 1 < rtf.size() && rtf[at] == '-' && isDigit(rtf[at + 1]);
    if (negative)
        ++at;
    qint64 number = 0;
    while (at < rtf.size() && isDigit(rtf[at])) {
        control.hasNumber = true;
        // Digits beyond any number that means something are read and change nothing.
        number = std::min<qint64>(number * 10 + (rtf[at] - '0'), std::numeric_limits<int>::max());
        ++at;
    }
    control.number = static_cast<int>(negative ? -number : number);
    if (at < rtf.size() && rtf[at] == ' ')
        ++at;
    return control;
}

void Reader::obey(const ControlWord &control)
{
    const bool wasStarred = starred;
    starred = false;
    if (control.word == "bin") {
        passOver(control.number);
        return;
    }
    // Text and destinations that nobody here knows: "\*" says that they may be left out.
    if (wasStarred || std::find(noText.begin(), noText.end(), control.word) != noText.end()) {
        look.skipped = true;
        return;
    }
    if (control.word == "u" && control.hasNumber) {
        unicodeCharacter(control.number);
        return;
    }
    if (fallbackLeft > 0) {
        --fallbackLeft;
        return;
    }
    if (obeyLook(control))
        return;
    const auto *symbol = std::find_if(symbols.begin(), symbols.end(),
                                      [&](const Symbol &row) { return row.word == control.word; });
    if (symbol != symbols.end())
        add(symbol->character);
}

/// True when the word was one that changes how characters look.
bool Reader::obeyLook(const ControlWord &control)
{
    if (control.word == "b")
        look.bold = control.on();
    else if (control.word == "i")
        look.italic = control.on();
    else if (control.word == "ul")
        look.underline = control.on();
    else if (control.word == "ulnone")
        look.underline = false;
    else if (control.word == "fs")
        look.halfPoints = control.hasNumber
                              ? std::clamp(control.number, smallestHalfPoints, largestHalfPoints)
                              : Look().halfPoints;
    else if (control.word == "uc")
        look.fallback = std::clamp(control.number, 0, 16);
    else if (control.word == "plain") {
        const Look plain = look;
        look = Look();
        look.skipped = plain.skipped;
        look.fallback = plain.fallback;
    } else
        return false;
    return true;
}

void Reader::hexCharacter()
{
    if (at + 1 >= rtf.size()) {
        at = rtf.size();
        return;
    }
    const int high = hexDigit(rtf[at]);
    const int low = hexDigit(rtf[at + 1]);
    if (high < 0 || low < 0)
        return;
    at += 2;
    if (fallbackLeft > 0)
        --fallbackLeft;
    else
        addFromFile(AnsiCharacter(static_cast<quint8>(high * 16 + low)).unicode());
}

/// The number of a \u is a 16-bit one with a sign: what is above 32,767 is written negative.
void Reader::unicodeCharacter(int code)
{
    fallbackLeft = look.fallback;
    addFromFile(static_cast<char16_t>(static_cast<quint32>(code) & 0xFFFFU));
}

void Reader::passOver(qsizetype bytes)
{
    at += std::clamp<qsizetype>(bytes, 0, rtf.size() - at);
}

void Reader::plainByte(char byte)
{
    if (fallbackLeft > 0)
        --fallbackLeft;
    else
        addFromFile(AnsiCharacter(static_cast<quint8>(byte)).unicode());
}

bool Reader::isShown(char16_t character)
{
    // Control characters have no look, and two of the non-characters mean something to a document.
    return (character >= u' ' || character == u'\t') && (character < 0x7F || character > 0x9F)
           && (character < 0xFDD0 || character > 0xFDEF) && character < 0xFFFE;
}

void Reader::addFromFile(char16_t character)
{
    if (isShown(character))
        add(character);
}

void Reader::add(char16_t character)
{
    if (look.skipped || full())
        return;
    newRun();
    runs.last().Text.append(QChar(character));
    ++characters;
}

/// Begins a run unless the last one looks as the next character has to.
void Reader::newRun()
{
    RtfRun run{.Text = {},
               .Bold = look.bold,
               .Italic = look.italic,
               .Underline = look.underline,
               .HalfPoints = look.halfPoints};
    if (runs.size() >= mostRtfRuns)
        return;
    if (!runs.isEmpty()) {
        const RtfRun &last = runs.last();
        if (last.Bold == run.Bold && last.Italic == run.Italic && last.Underline == run.Underline
            && last.HalfPoints == run.HalfPoints)
            return;
    }
    runs.append(std::move(run));
}

/// The runs, with half a surrogate pair replaced: alone it is no character.
QList<RtfRun> Reader::finished()
{
    for (RtfRun &run : runs) {
        QString &text = run.Text;
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text.at(i).isHighSurrogate() && i + 1 < text.size()
                && text.at(i + 1).isLowSurrogate())
                ++i;
            else if (text.at(i).isSurrogate())
                text[i] = QChar::ReplacementCharacter;
        }
    }
    return std::move(runs);
}
} // namespace

QList<RtfRun> ReadRtf(QByteArrayView rtf)
{
    Reader reader(rtf);
    return rtf.startsWith("{\\rtf") ? reader.Read() : reader.ReadPlain();
}
