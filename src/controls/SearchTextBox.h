#pragma once

#include <QLineEdit>

/// An entry field for text that will travel in a request. The characters for which a frame has no
/// escape, "|" and the broken bar, cannot be typed or pasted into it, and neither can line ends and
/// other control characters; the rest of a pasted text goes in.
class SearchTextBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit SearchTextBox(QWidget *parent = nullptr);

    /// Further characters that this field's requests reserve, such as "~".
    void SetReserved(const QString &characters);

    /// The most characters that an entry may have.
    static constexpr int longestEntry = 255;

private:
    QString reserved;
};
