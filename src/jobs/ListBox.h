#pragma once

#include <QStringList>

#include <functional>
#include <utility>

/// A list of lines that a job works from. Lines are counted from 0.
class ListBox
{
public:
    void AddItem(const QString &line)
    {
        lines.append(line);
        tell();
    }
    void RemoveItem(int index)
    {
        lines.removeAt(index);
        tell();
    }
    QString List(int index) const { return lines.value(index); }
    int ListCount() const { return static_cast<int>(lines.size()); }
    void Clear()
    {
        lines.clear();
        tell();
    }

    const QStringList &Lines() const { return lines; }

    /// Who is told when a line has come or gone; nobody by itself.
    void WhenChanged(std::function<void()> listener) { changed = std::move(listener); }

private:
    void tell() const
    {
        if (changed)
            changed();
    }

    QStringList lines;
    std::function<void()> changed;
};
