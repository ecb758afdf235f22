#pragma once

#include "tables/ResultListView.h"

/// A table that asks for no more than the least that it can be: the list above it gets the room.
class CourtTable : public ResultListView
{
    Q_OBJECT
public:
    using ResultListView::ResultListView;

    QSize sizeHint() const override
    {
        return {ResultListView::sizeHint().width(), minimumHeight()};
    }
};
