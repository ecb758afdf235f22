#include "reports/ReportPaper.h"

#include "core/FolderState.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {
constexpr Paper letterPaper{12240, 15840};
constexpr Paper a4Paper{11900, 16840};

constexpr std::array<QLocale::Territory, 17> lettersTerritories{QLocale::UnitedStates,
                                                                QLocale::Canada,
                                                                QLocale::Mexico,
                                                                QLocale::PuertoRico,
                                                                QLocale::Philippines,
                                                                QLocale::Chile,
                                                                QLocale::Colombia,
                                                                QLocale::Venezuela,
                                                                QLocale::CostaRica,
                                                                QLocale::Guatemala,
                                                                QLocale::ElSalvador,
                                                                QLocale::Honduras,
                                                                QLocale::Nicaragua,
                                                                QLocale::Panama,
                                                                QLocale::DominicanRepublic,
                                                                QLocale::Guam,
                                                                QLocale::UnitedStatesVirginIslands};

struct PaperState
{
    std::optional<Paper> Chosen;
};
FolderState<PaperState> state;
} // namespace

Paper PaperOfTerritory(QLocale::Territory territory)
{
    const bool letter = std::find(lettersTerritories.begin(), lettersTerritories.end(), territory)
                        != lettersTerritories.end();
    return letter ? letterPaper : a4Paper;
}

int PaperNumber(const Paper &paper)
{
    constexpr int letter = 1;
    constexpr int a4 = 9;
    constexpr int other = 256;
    const Paper upright{std::min(paper.Width, paper.Height), std::max(paper.Width, paper.Height)};
    if (upright == letterPaper)
        return letter;
    return upright == a4Paper ? a4 : other;
}

int OrientationNumber(const Paper &paper)
{
    return paper.Width > paper.Height ? 2 : 1;
}

ReportPaper &ReportPaper::Of()
{
    static ReportPaper paper;
    return paper;
}

Paper ReportPaper::Current() const
{
    return state.Chosen ? *state.Chosen : PaperOfTerritory(QLocale::system().territory());
}

void ReportPaper::Set(const Paper &paper)
{
    if (paper == Current())
        return;
    state.Chosen = paper;
    Q_EMIT Changed();
}
