#pragma once

#include <QStringList>

/// A list of lines that a job works from. Lines are counted from 0.
class ListBox
{
public:
    void AddItem(const QString &line) { lines.append(line); }
    void RemoveItem(int index) { lines.removeAt(index); }
    QString List(int index) const { return lines.value(index); }
    int ListCount() const { return static_cast<int>(lines.size()); }
    void Clear() { lines.clear(); }

    const QStringList &Lines() const { return lines; }

private:
    QStringList lines;
};
