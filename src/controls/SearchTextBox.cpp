#include "controls/SearchTextBox.h"

#include <QValidator>

using namespace Qt::StringLiterals;

namespace {
/// Takes the characters that cannot travel out of whatever was typed or pasted.
class WireValidator : public QValidator
{
public:
    WireValidator(const QString *reservedCharacters, QObject *parent)
        : QValidator(parent), reserved(reservedCharacters)
    {
    }

    State validate(QString &input, int &position) const override
    {
        for (qsizetype i = input.size() - 1; i >= 0; --i) {
            if (!cannotTravel(input[i]))
                continue;
            input.remove(i, 1);
            if (i < position)
                --position;
        }
        return Acceptable;
    }

private:
    bool cannotTravel(QChar c) const
    {
        return reserved->contains(c) || c.category() == QChar::Other_Control;
    }

    const QString *reserved;
};
} // namespace

SearchTextBox::SearchTextBox(QWidget *parent) : QLineEdit(parent), reserved(u"|\u00A6"_s)
{
    setMaxLength(longestEntry);
    setValidator(new WireValidator(&reserved, this));
}

void SearchTextBox::SetReserved(const QString &characters)
{
    reserved = u"|\u00A6"_s + characters;
}
