#include "practice/DocumentTroubles.h"

namespace Practice {
namespace {
using Trouble = DocumentTrouble;

constexpr qint64 hugeBytes = 200'000'000;
constexpr qint64 slowSeconds = 20;
} // namespace

constexpr std::array<DocumentTroubleRow, 22> documentTroubles{{
    {3, u"Complaint", Trouble::None},
    {2, u"Exhibit As TIFF", Trouble::Tiff},
    {1, u"Sealed Exhibit", Trouble::Unavailable},
    {2, u"Declaration Of Mailing<BR>and of publication", Trouble::None},
    {4, u"Order Re: Costs/Fees & \"Other\" (Amended)", Trouble::None},
    {99, u"Transcript Of 99 Pages", Trouble::None},
    {100, u"Transcript Of 100 Pages", Trouble::None},
    {12, u"Slow Document", Trouble::Slow, slowSeconds},
    {2, u"12 Progress Notices", Trouble::Notices, 12},
    {2, u"13 Progress Notices", Trouble::Notices, 13},
    {2, u"Type That Is Not Opened", Trouble::Typed, 0, "wpd"},
    {2, u"Runnable Type sh", Trouble::Typed, 0, "sh"},
    {2, u"Runnable Type desktop", Trouble::Typed, 0, "desktop"},
    {2, u"Type With A Path", Trouble::Typed, 0, "../../pdf"},
    {2, u"No Type", Trouble::Typed, 0, ""},
    {2, u"Length Too Large", Trouble::TooLong},
    {2, u"Length Too Small", Trouble::TooShort},
    {2, u"No Length", Trouble::NoLength},
    {40, u"Link Dropped In The Middle", Trouble::Dropped},
    {40, u"Stall In The Middle", Trouble::Stalled},
    {2, u"Document That Is Gone", Trouble::Gone},
    {140, u"200 Megabytes", Trouble::Huge, hugeBytes},
}};
} // namespace Practice
