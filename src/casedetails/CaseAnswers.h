#pragma once

#include "core/Boolean.h"
#include "core/FolderState.h"

/// What the questions over a case window were answered with last.
struct CaseAnswersState
{
    Boolean ArbitrationChosen; ///< the last answer of frmArbPrompt
    Boolean bOnDemandPrompt;   ///< an incomplete tab asks whether it shall be retrieved again
    Boolean bOnDemandRetry;    ///< the last answer to that
};

inline FolderState<CaseAnswersState> CaseAnswers;
