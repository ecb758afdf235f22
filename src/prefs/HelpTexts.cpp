#include "prefs/HelpTexts.h"

#include <array>

namespace {
constexpr int topicsBesideTheSteps = 2;

constexpr std::array<HelpText, helpTopicCount + topicsBesideTheSteps> searchHelp{{
    {u"Selecting a Jurisdiction",
     uR"help(Choose the state, or U.S. Courts, and then the court. Everything below on the form follows: what cannot be searched in that court goes out of sight.

• Washington: Superior Courts, or District & Municipal Courts. The current court stands in brackets in the step.
• Oregon: Circuit Court or District Court. Baker, Gilliam, Grant, Harney, Sherman and Wheeler have no District Court; you are warned, and on Yes they are skipped.
• Idaho: District Courts.
• U.S. Courts: Federal Bankruptcy Courts in Washington (Western and Eastern), Oregon and Idaho.

= Tip
The menu Courts takes you to the same courts. Your own default court is chosen in Options and Preferences.)help"},
    {u"Selecting a Search Type", uR"help(• By Person Name: last name, first name, middle initial.
• By Business Name: one box for the whole name.
• By Number: the case number. It opens the case at once, without a list of results.
• By Tax ID or UBI # and By SSN #: bankruptcy courts only.

= Use Index (Updated Weekly)
Washington Superior Courts, name searches only. The index answers all counties in one request and is much faster, but it is a week old at most: for what was filed in the last days leave the box unchecked. Results come in pages, 500 cases each unless options.ini says otherwise; Get Next brings the next page.

= Batch Entry
By Number only: up to ten numbers at once. It is there for Washington Superior, Oregon and Idaho.)help"},
    {u"Entering a Name", uR"help(= Person
The last name is required. A middle initial or a suffix needs a first name beside it. Small and capital letters are the same.
• Enter a full first name, and the middle initial when you know it. A common last name alone brings more than a court gives out: many courts stop at 200 results.
• The suffix (Jr., Sr., III) is for your own notes: courts are not asked for it.

= Business
Enter the name as the court would have it, without "The" in front. When nothing is found, try a shorter form, such as ACME for Acme Holdings, Inc.

= Most Recently Used List
Your latest 31 names are kept, the newest on top; business names and numbers have lists of their own. Choose one, and the boxes are filled.)help"},
    {u"Entering a Batch of Numbers",
     uR"help(Up to ten numbers, each with its county. Each one opens in a case window of its own; they wait in line and are fetched from top to bottom. Empty lines are passed over.

• Retrieve (selective print): opens a window for each case.
• Retrieve and Print All: the same, and each case is printed when the last one has come. With alerts on you are asked each time what goes into the report; without them it is all that was retrieved.
• Set All Counties to Same as #1: for ten numbers of one county. The numbers stay.
• Set Default County to Same as #1: all ten lines begin with this county from now on.
• Reset/Clear: empties the ten lines.

Every number needs a county: one line without it stops the whole batch before anything is sent. A message names the line, counted from 1. The formats of numbers are those of a search for one number.

When client accounting codes are switched on, the code is asked for once and holds for the whole batch.)help"},
    {u"Selecting Jurisdiction(s)",
     uR"help(• By County(s): check one or more counties. Check only what you need: outside the index each county of a Washington search is a request of its own, and they are sent one after the other.
• Statewide: all 39 counties of Washington are 39 requests, so expect to wait; with Use Index they are one. Statewide searches in Oregon (37) and Idaho (44) are always one request.
• Use Search Profile: double-click a template. It checks its counties and case types for you; look them over and change what you like.

= Templates
A template is a set of counties and case types under a name. Templates stand in the file templates.ini in the application folder, which your office prepares. A county that is no longer in the list is left out.)help"},
    {u"Entering a Number and its County",
     uR"help(Enter the number as it stands on the papers. Dashes may be left out where it says so.

= Formats
• Washington Superior: 09-2-02029-9, or 092020299. Nine digits: year, case type, number, check digit. Dashes are put in for you.
• Washington District & Municipal: 3YH809020
• Oregon: CV08060677
• Idaho: CR-1998-0002546-IN. Enter it in full, with its dashes.
• Bankruptcy: 99-20077. Seven digits become 99-20077, nine 123-456-789, ten 2:99-12-20077. Dashes and colons are put in for you.
• Tax ID: 91-1234567. The first two digits are 80 to 99, or 00 to 19 for 2000 and later. Dashes are optional.
• UBI: 601-234-567. A number that cannot be a Tax ID is read as a UBI. Enter it with its dashes.
• SSN: 123-45-6789, or 123456789.

= Washington Superior
The last digit is computed from the county and the rest of the number. "The case number is invalid for the county chosen." therefore means a mistyped digit or the wrong county; nothing was sent.
Case types 5 (Adoption), 6 (Mental Illness) and 7 (Juvenile Dependency) are restricted and cannot be retrieved. The case type is the digit between the first two dashes.

= "Appears to be a non-SCOMIS number"
The number is not nine digits long. District, municipal and Oregon numbers never are, and some old Superior numbers are not. Check what you typed; OK searches with it as it stands.

= County
A number search takes one county: the same number exists in other counties too.)help"},
    {u"Selecting Civil or Non-Civil", uR"help(• Civil: each court is a request of its own.
• Non-Civil: all others, such as criminal cases and infractions. The answer may be a list of duplicate names first: people of the same name, each with what tells them apart. Check the right ones and choose Retrieve Case(s).

Choose this first: the list of counties in the next step depends on it.)help"},
    {u"Selecting Court(s)",
     uR"help(Choose a county. Its courts are listed, and in a name search all of them are selected; click to leave one out. Courts Available and Courts Selected are counted below.

= All counties
"ALL COUNTIES/STATEWIDE" searches all 173 courts.
• Non-civil: one request for the whole state.
• Civil: 173 requests, one court after the other. Prefer a county when you know it.

= Show address/defs only
For a non-civil search by person name: defendants of the whole state with their addresses.

= By number
Select the one court that has the case.)help"},
    {u"Selecting Bankruptcy Court(s)",
     uR"help(Check one or more: Washington (Western), Washington (Eastern), Oregon, Idaho. Each court gets a window of its own; they are searched one after the other, in the order of the boxes.

By Tax ID or UBI # and By SSN # find debtors by their number. Enter numbers exactly: there is no search for part of one.)help"},
    {u"Selecting Case Type(s)",
     uR"help(Check at least one. The fewer you check, the shorter the list and the sooner you reach the case: a court gives out a limited number of results.

• Washington Superior: Civil, Criminal, Domestic, Judgment, Juvenile Offender, Probate.
• Oregon: some counties have no Juvenile Offender searches; you are warned, and on Yes that case type is left out there. "Check here to Only retrieve cases with Judgments" narrows any choice.
• Idaho: Civil, Criminal, Juvenile.

A search by number needs no case type.)help"},
    {u"Selecting Search Years ", uR"help(• All Available: every year that the court has.
• Range: only cases filed from the first year to the last, both included.

A range is the best cure for too many results. For one year set both boxes to it. How far back a court goes differs: see Help, Court Coverage.

A search by number takes no years.)help"},
    {u"Selecting Bankruptcy Search Years",
     uR"help(• All Available: cases filed from 1980 to this year.
• Range: only cases filed from the first year to the last, both included. For earlier cases, back to 1970, use a range.

A search by number takes no years.)help"},
    {u"Starting, Waiting and Stopping",
     uR"help(Start Search opens a window for the results, and the form stays as it is: enter the next search right away. Searches wait in line ("Pending ..") and run one at a time, in the order in which you started them.

= To stop
Choose Stop Search in the window. What has arrived stays in its list. A window that is waiting is taken out of the line, and nothing is sent. Stop a search that waits before you close its window.

= The lamp
Green: connected. Red: not connected; choose Connection, Connect. A lost connection shows within 15 seconds.)help"},
    {u"Client Accounting Codes",
     uR"help(A code bills a search to one of your clients: it travels with each request and stands on your monthly invoice.

• With codes switched on, the code is asked for before each search; the latest ones are in the list.
• Enter/Change Client ID changes the code between searches.
• "Don't Show This Again" switches the question off. It is switched on again in Options and Preferences.
• Your account may demand a code. Then the window cannot be left without one.

Capital and small letters are the same.)help"},
}};

constexpr QStringView caseDetails = uR"help(= Tabs
A case opens on its Summary, and fetches its other tabs one after the other. Ctrl+Tab goes to the next tab, Ctrl+1 to Ctrl+9 to one of the first nine. Which tabs there are depends on the court and the case type:
• District and municipal courts: Names, Docket, and Judgments for a civil case, Violations for any other.
• Washington Superior: Names, Docket, Judgments, Charges, Sentence, Accounting, Schedule, Documents. A criminal case has all of them; a civil, domestic or probate case has no Charges and Sentence.
• Oregon: Names, Docket, Judgments, Accounting, Finance, Charges, Sentence, where the court has them.
• Idaho: Names, Docket, Judgments, Charges, where the court has them.
• Bankruptcy: what the court sends with the summary.
An archived case ("*" before its number) has fewer tabs, and in most cases no Docket.

= Retrieve on Demand
A tab that your options do not fetch by themselves shows a panel instead. Check the details that you want and choose Search Now; they join the line of waiting searches. Which tabs are fetched at once is chosen for each court in Options and Preferences; for cases that are not civil it is set in options.ini, by 1 behind the tab's name in NonCivilCaseTabs.

= Incomplete tabs
"Information Incomplete! Click Tab to Review." means that the court's answer broke off. Click the tab: YES offers another try, NO shows what has arrived.

= Other cases
In the Summary of a Superior case, double-click an "Associated Case:" to open it; in its Judgments, a row with a case number. A bankruptcy number that fits several cases lists them: double-click one.

= Documents
Washington Superior only: the list of the documents that the court has. "(Unavail.)" marks one that it does not give out. Double-click a document to retrieve it: it joins the line of waiting searches, is saved in the folder Reports and opened. Retrieve All Documents .. in the menu of the right mouse button saves all that the list shows in a folder of the case, with a list of them, and opens none.

= Printing and saving
Print Details asks which of the retrieved details go into the report, and shows it. Grid Lines draws thin lines around the cells. Save in the menu File writes the same as text. A report that is made before everything has come says so at its head. Details that broke off can be chosen once you have answered NO to another try; they carry their warning.

= Stopping and closing
Stop Search ends the retrieval; tabs that have arrived stay, and the rest can be retrieved on demand. A window that is retrieving cannot be closed: stop it first.

= Status
• "Pending ..": waiting in line behind other searches.
• "Searching ..": the court is answering.
• "Search Complete": every tab that was asked for has arrived.
• "Search Complete - Case Number Invalid": the court has no such case. Check the number and the county.
Dark blue: all is well. Red: stopped or incomplete; do not rely on the case being whole.)help";

constexpr QStringView nameSearchResults =
    uR"help(Double-click a case to open its window, or select it and choose Retrieve Case Details. Click a column header to sort by it, and again to turn the order round.

= Marks before a case number
• *  The case is archived. It may have fewer details.
• >>  You have already retrieved it from this list.
• >>*  Both.

= How a search ends
• "Search Complete": every request was answered. No cases means that the court has none for these entries.
• "The Max. Number of Names were retrieved.": the court stopped at its limit, and there are more. Add a first name or a middle initial, or choose fewer years and case types.
• "Search Stopped - Max Results Reached": more than 200 results. The counties behind the one named were not searched. Refine the entries and search again.
• "Search Incomplete!": a court answered with an error, and results may be missing. Search again.
• "Search Stopped By User": you stopped it. What had arrived is in the list.
• "Search Stopped - Court Connection Lost!": the connection broke or the court gave no answer in time. Log in again if the lamp is red, close the window and search again.

= Colours
Dark blue: all is well. Red: the list is not complete; do not report "no record" from it. Whatever the colour, read the line: a search that ran into the court's limit is not complete either.

= Index searches
"More Results Available": choose Get Next; the next page is added below. Pages can be fetched until none are left.

= District and municipal courts
"Multiple Names Match": people of the same name. Check the right ones and choose Retrieve Case(s). View Cases and View Duplicates switch between the two lists.

= Print, save, email
Print Results shows the list as it comes out on paper; from there it is printed, or saved as PDF. Save Results writes it as text. Email Results saves it, too, and opens your mail program with a copy: you enter who is to get it.)help";
} // namespace

std::span<const HelpText> SearchHelpTexts()
{
    return searchHelp;
}

QStringView CaseDetailsHelpText()
{
    return caseDetails;
}

QStringView NameSearchResultsHelpText()
{
    return nameSearchResults;
}
