#include "searchentry/SearchFormUser.h"

#include "controls/CheckListBox.h"
#include "core/GlobalState.h"
#include "searchentry/frmSearchWA.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace {
QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}

void compare(QString &differences, const QString &what, const QString &found,
             const QString &expected)
{
    if (found != expected)
        differences += what + u": ["_s + found + u"] for ["_s + expected + u"]; "_s;
}

void compare(QString &differences, const QString &what, const QStringList &found,
             const QStringList &expected)
{
    if (found != expected)
        compare(differences, what, found.join(u'/'), expected.join(u'/'));
}

QByteArray element(const char *array, int index)
{
    return QByteArray(array) + '_' + QByteArray::number(index);
}

QString joined(const QList<QByteArray> &names)
{
    return text(names.join(' ').constData());
}
} // namespace

SearchFormUser::SearchFormUser(bool shown)
{
    if (shown)
        frmSearchWA::ShowForm();
    Form = &frmSearchWA::Form();
    // Only in an active window has a box the focus.
    if (shown && !QTest::qWaitForWindowActive(Form))
        qFatal("the form does not come to the front");
}

SearchFormUser::~SearchFormUser()
{
    if (frmSearchWA::IsLoaded())
        frmSearchWA::Form().Unload();
}

QAbstractButton *SearchFormUser::Button(const QByteArray &name) const
{
    return Find<QAbstractButton>(name.constData());
}

QLineEdit *SearchFormUser::Box(int index) const
{
    return Find<QLineEdit>(element("txtSearchName", index).constData());
}

QLineEdit *SearchFormUser::BatchBox(int index) const
{
    return Find<QLineEdit>(element("Text1", index).constData());
}

QComboBox *SearchFormUser::BatchCounty(int index) const
{
    return Find<QComboBox>(element("cbCty1", index).constData());
}

void SearchFormUser::ClickRow(const char *list, int row) const
{
    auto *widget = Find<QListWidget>(list);
    widget->scrollToItem(widget->item(row));
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                      widget->visualItemRect(widget->item(row)).center());
}

void SearchFormUser::DoubleClickRow(const char *list, int row) const
{
    auto *widget = Find<QListWidget>(list);
    widget->scrollToItem(widget->item(row));
    const QPoint middle = widget->visualItemRect(widget->item(row)).center();
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(widget->viewport(), Qt::LeftButton, {}, middle);
}

void SearchFormUser::Click(const QByteArray &name) const
{
    if (name.startsWith("lstJurisdictions_")) {
        ClickRow("lstJurisdictions", name.right(1).toInt());
        return;
    }
    auto *widget = Find(name.constData());
    if (!widget->isVisible())
        qFatal("nobody can click %s: it is not there", name.constData());
    QTest::mouseClick(widget, Qt::LeftButton, {}, {10, widget->height() / 2});
}

void SearchFormUser::Press(const QByteArray &name) const
{
    if (name.startsWith("lstJurisdictions_"))
        Find<QListWidget>("lstJurisdictions")->setCurrentRow(name.right(1).toInt());
    else
        Button(name)->click();
}

void SearchFormUser::GoTo(const Place &place) const
{
    const QList<QByteArray> way = WayTo(place);
    for (const QByteArray &control : way)
        Press(control);
    if (Button("chkBulkSearch")->isChecked() != place.Batch)
        Press("chkBulkSearch");
}

QStringList SearchFormUser::Items(const char *list) const
{
    const auto *widget = Find<QListWidget>(list);
    QStringList texts;
    for (int i = 0; i < widget->count(); ++i)
        texts.append(widget->item(i)->text());
    return texts;
}

QStringList SearchFormUser::ComboItems(const char *combo) const
{
    const auto *widget = Find<QComboBox>(combo);
    QStringList texts;
    for (int i = 0; i < widget->count(); ++i)
        texts.append(widget->itemText(i));
    return texts;
}

QStringList SearchFormUser::Ticked(const char *list) const
{
    return Find<CheckListBox>(list)->Selected();
}

QList<QByteArray> SearchFormUser::Shown() const
{
    QList<QByteArray> shown;
    for (const QByteArray &name : comingAndGoing) {
        if (Find(name.constData())->isVisibleTo(Form))
            shown.append(name);
    }
    std::sort(shown.begin(), shown.end());
    return shown;
}

QStringList SearchFormUser::CountiesOf(int court) const
{
    constexpr std::array<const char *, 5> files{"wactylst.txt", "", "OrCtyLst.txt", "IdCtyLst.txt",
                                                ""};
    const auto index = static_cast<size_t>(court);
    if (counties[index].isEmpty() && *files[index]) {
        const QString content = QString::fromLatin1(Desk.Folder.Read(text(files[index])));
        counties[index] = QString(content).remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
    }
    return counties[index];
}

QString SearchFormUser::Differences(const Place &place, bool templateApplied) const
{
    QString differences;
    compare(differences, u"shown"_s, joined(Shown()), joined(ShownAt(place, templateApplied)));
    return differences + globalDifferences(place) + textDifferences(place, templateApplied)
           + listDifferences(place);
}

QString SearchFormUser::globalDifferences(const Place &place) const
{
    const FamilyText &family = familyTexts[static_cast<size_t>(place.Court)];
    QString differences;
    compare(differences, u"strSearchState"_s, Global.strSearchState, text(family.searchState));
    compare(differences, u"strCurrentCourt"_s, frmSearchWA::Form().strCurrentCourt,
            text(family.currentCourt));
    compare(differences, u"strCurrentSearchType"_s, frmSearchWA::Form().strCurrentSearchType,
            text(typeTexts[static_cast<size_t>(place.Type)].searchType));
    compare(differences, u"intSearchWhere"_s, QString::number(frmSearchWA::Form().intSearchWhere),
            QString::number(place.Court == Discis ? place.DiscisWhere : place.Where));
    return differences;
}

QString SearchFormUser::textDifferences(const Place &place, bool templateApplied) const
{
    const FamilyText &family = familyTexts[static_cast<size_t>(place.Court)];
    const TypeText &type = typeTexts[static_cast<size_t>(place.Type)];
    QString differences;
    compare(differences, u"caption"_s, Form->windowTitle(), text(family.caption));
    const auto *court = Find<QLabel>("lblCurrentCourt");
    compare(differences, u"court"_s, court->isVisibleTo(Form) ? court->text() : QString(),
            text(family.courtLabel));
    if (*family.statewide)
        compare(differences, u"statewide"_s, Button("optSearchWhere_2")->text(),
                text(family.statewide));
    compare(differences, u"example"_s, Text("lblCaseNumEx"), text(family.example));
    compare(differences, u"step"_s, Find<QGroupBox>("Frame2")->title(), text(type.step));
    constexpr std::array<const char *, 4> labels{"lblNameSearchLastName", "lblNameSearchFirstName",
                                                 "lblNameSearchMI", "lblNameSearchSuffix"};
    for (size_t i = 0; i < labels.size(); ++i) {
        compare(differences, text(labels[i]), Text(labels[i]), text(type.labels[i]));
        const bool shown = Box(static_cast<int>(i))->isVisibleTo(Find("Frame2"));
        if (shown != (*type.labels[i] != 0))
            differences += u"name box "_s + QString::number(i) + u" is wrongly there or away; "_s;
    }
    const QString scope =
        templateApplied ? u"Template Loaded. Double-click 'Templates' for the Template List."_s
                        : text(scopeLabels[static_cast<size_t>(place.Where) - 1]);
    compare(differences, u"scope"_s, Text("lblCountyOrProfile"), scope);
    const QByteArray chosen[] = {
        "optState_" + QByteArray::number(family.optState),
        "optSearchType_" + QByteArray::number(place.Type),
        "optSearchWhere_" + QByteArray::number(place.Where - 1),
    };
    for (const QByteArray &name : chosen) {
        if (!Button(name)->isChecked())
            differences += text(name.constData()) + u" is not chosen; "_s;
    }
    compare(differences, u"jurisdiction"_s,
            QString::number(Find<QListWidget>("lstJurisdictions")->currentRow()),
            QString::number(place.Court));
    return differences;
}

QString SearchFormUser::listDifferences(const Place &place) const
{
    QString differences;
    const QList<QByteArray> shown = ShownAt(place);
    const QStringList own = CountiesOf(place.Court);
    if (shown.contains("Frame11"))
        compare(differences, u"counties"_s, Items("lboxCountyOrProfile"),
                place.Where == 3 ? QStringList{u"(Statewide)"_s} : own);
    if (shown.contains("Frame12"))
        compare(differences, u"one county"_s, Items("lboxMultiJurisdiction"), own);
    if (shown.contains("Frame4"))
        compare(differences, u"case types"_s, Items("lboxCaseTypes"),
                text(familyTexts[static_cast<size_t>(place.Court)].caseTypes).split(u','));
    if (shown.contains("frameBulkSearch"))
        compare(differences, u"batch counties"_s, ComboItems("cbCty1_9"),
                QStringList{u"---- NO SELECTION ----"_s} + own);
    if (shown.contains("Frame9")) {
        QStringList boxes{u"-- ALL COUNTIES/STATEWIDE --"_s};
        if (place.Type == 0 && place.DiscisWhere == 6)
            boxes.append(u"-- SHOW ADDRESS/DEFS ONLY --"_s);
        compare(differences, u"county box"_s, ComboItems("cboxCountyList"),
                boxes + CountiesOf(Superior));
        if (Button("optDiscisSearch_0")->isChecked() != (place.DiscisWhere == 5))
            differences += u"the wrong case type is chosen; "_s;
    }
    return differences;
}
