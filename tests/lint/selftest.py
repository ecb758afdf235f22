#!/usr/bin/env python3
"""A lint that finds nothing is worth nothing: each one has to fail on a tree with one offence, for
every kind of offence, and to pass on the same tree without it."""

import os
import subprocess
import sys
import tempfile
import unittest

LINTS = ("layers", "plain_text", "house", "one_road", "one_table", "pages", "platform", "records", "words")

HERE = os.path.dirname(os.path.abspath(__file__))

LABEL_UI = """<ui version="4.0"><class>frmOne</class><widget class="QDialog" name="frmOne">
 <widget class="QLabel" name="lblState">{}</widget>
</widget></ui>
"""
PLAIN_PROPERTY = '<property name="textFormat"><enum>Qt::PlainText</enum></property>'

# Six functions, among much that looks like one and is none.
FULL_CLASS = """
enum class Kind { One, Two };
class Full final : public QObject, private Base<int>
{
    Q_OBJECT
    Q_PROPERTY(int one READ One)
public:
    explicit(false) Full(int a) : QObject(nullptr), one{a}, two(f(a)) { g(); }
    ~Full() override;
    bool operator()(const std::function<void(int)> &f) const { return f(one) && g(two); }
    Full &operator=(const Full &) = delete;
    template<typename T> static T Made(T from = T(), Kind kind = {}) noexcept(false);
    friend void g();
    using Call = void (*)();
    static_assert(sizeof(int) == 4);
    struct Inner
    {
        void a();
        void b() {}
    };
Q_SIGNALS:
    void Done();
private:
    std::function<void(int)> call;
    void (*pointer)(int) = nullptr;
    int one = h(3); // void c();
    int two{h(4)};
    FUNCTIONS
};
"""


def full_class(functions):
    """A class with so many member functions, six of them as unlike as they can be."""
    return FULL_CLASS.replace("FUNCTIONS", "void f();" * (functions - 6))


# Everything in it is allowed, and much of it is nearly not.
CLEAN_TREE = {
    "src/main.cpp": '#include "prefs/frmOpts.h"\n#include "app/Start.h"\n',
    "src/core/Clock.h": "#include <QDateTime>\n// SIGNAL( and emit this: only a remark\n",
    "src/core/CMakeLists.txt": "add_library(halvane_core STATIC Clock.h)\n",
    "src/link/Comm.cpp": '#include "link/Comm.h"\n#include "core/Clock.h"\n',
    "src/link/Comm.h": "#include <QByteArray>\n",
    "src/courts/CourtTable.h": 'constexpr QStringView stop = u"STOP\\u00A6";\n',
    "src/core/Settings.cpp": 'setting.Init(u"options.ini"_s); GetOptionStr(u"A"_s, u"B"_s);\n',
    "src/link/RequestLine.h": "constexpr char16_t fieldBar = u'\\u00A6'; // a\u00A6b\n",
    "src/searchentry/Line.cpp": "// WASUP\u00A6SUMMARY\u00A6\nSaveOptionStr(section, key, value);\n"
                                'log(u"SEARCH STOPPED ~ STOP"_s);\n',
    "src/link/Exchange.cpp": "void f() { SendReq(a); ReadResponse(); } // dialog.exec()\n",
    "src/core/Platform.cpp": "#include <unistd.h>\nint f() { return ::getpid(); } // Q_OS_UNIX\n",
    "src/core/PlatformWatch.cpp": '#ifdef Q_OS_UNIX\n#include <csignal>\nf(u"/tmp"_s);\n#endif\n',
    "src/app/Ends.cpp": "// SIGTERM, and what /proc and Q_OS_WIN mean\n#include <cstdio>\n"
                        "void E::kill() { process.kill(); f(&::g, a::open(b), SIGNED, QSysInfo::kernelType()); }\n",
    "tests/core/tst_Platform.cpp": "#include <csignal>\n#ifdef Q_OS_UNIX\n#endif\n",
    "src/controls/ModalDialog.cpp": "int f() { return dialog->exec(); }\n",
    "src/controls/SaveDialog.cpp": "#include <QFileDialog>\n",
    "src/history/HistoryDatabase.cpp": "bool f() { return query.exec(); }\n",
    "src/session/frmLogin.cpp": "QEventLoop loop; loop.exec(); BeginExchange(a);\n",
    "src/jobs/CMakeLists.txt": "halvane_library(jobs logic SOURCES Turn.cpp Turn.h LIBS core)\n"
                               "halvane_library(jobs forms SOURCES frmQueue.cpp)\n",
    "src/jobs/Turn.h": '#include "core/Clock.h"\n',
    "src/jobs/Turn.cpp": '#include "jobs/Turn.h"\n#include "link/Comm.h"\n',
    "src/jobs/frmQueue.cpp": '#include "jobs/Turn.h"\n#include <QWidget>\n'
                             '#include "ui_frmQueue.h"\n',
    "src/app/Start.h": '#include "searchentry/frmSearchWA.h"\n#include "prefs/frmOpts.h"\n',
    "src/searchentry/frmSearchWA.h": '#include "session/frmOne.h"\n',
    "src/prefs/frmOpts.h": '#include "namesearch/Rows.h"\n',
    "src/namesearch/Rows.h": "int rows = 1'000; // and 'quotes'\n",
    "src/controls/MsgBox.h": "class QMessageBox;\n",
    "src/controls/MsgBox.cpp": "void f() { QMessageBox b; b.setTextFormat(Qt::PlainText); }\n",
    "src/session/frmOne.h": "class frmOne {\n    Q_OBJECT\nQ_SIGNALS:\n    void Done();\n"
                            "private Q_SLOTS:\n    void x();\n    QLabel status;\n};\n",
    "src/session/frmOne.cpp": """
        frmOne::frmOne() : lblOne(new QLabel(this))
        {
            lblOne->setTextFormat(Qt::PlainText);
            status.setTextFormat(Qt::PlainText);
            auto *label = new QLabel(u"signals: of emit x, SLOT(x), QMessageBox"_s);
            label->setTextFormat(Qt::PlainText);
            for (int i = 0; i < 3; ++i) {
                optState[i] = new QLabel(this);
                optState[i]->setTextFormat(Qt::PlainText);
            }
            Q_EMIT Done();
        }
        """,
    "src/session/frmOne.ui": LABEL_UI.format(PLAIN_PROPERTY),
    "tests/session/tst_frmOne.cpp": "QVERIFY(trueCopy); // a QMessageBox is answered here\n",
    "data/masks.txt": "XXX-XX-1234, special, 1 part only\n",
    "docs/tests.md": "We never use QSKIP.\n",
    "docs/way.md": "# The way in\n[One](tests.md), [here](#the-way-in), [far](https://a.example/b), "
                   "`src/session/frmOne.cpp`,\n`session/frmOne`, `../data/masks.txt`, `frmOne.h`, "
                   "`optState`, `QSkipped`, `src/jobs/`,\n`cmake -B build/x`, `/etc/no`\n"
                   "```\n[None](none.md) src/none.cpp new\nsrc/core/Long, build/x/src/none src/*/README.md\n```\n\n"
                   "| a | b |\n|---|:-:|\n| c \\| d | e |\n\n| f |\n|---|\n| g |\n",
    "docs/practice.md": "`ANY/NAME`, `anyName`, `../../pdf`\n",
    "docs/users.md": "The user is told, and you are\ntold. It told the user so. A threshold is not told.\n",
    "src/core/Users.h": "// Who asks is not\n/// told why; nobody was told: no. Nobody has been told.\n",
    "src/core/Full.h": full_class(60),
    "src/core/Long.cpp": "// Long by design: one table.\n" + "\n" * 700,
    "build/dev/moc_x.cpp": "emit TODO;\n",
}

# In pieces, so that this file does not itself say what it must not.
PAPER = "spe" + "cification"
CHAPTER = "Par" + "t 4.1"

# (lint, what is wrong, file, its content)
OFFENCES = [
    ("layers", "upward", "src/core/Bad.h", '#include "jobs/Turn.h"\n'),
    ("layers", "upward in brackets", "src/jobs/Bad.cpp", "# include <session/frmOne.h>\n"),
    ("layers", "brothers", "src/prefs/Bad.h", '#include "searchentry/frmSearchWA.h"\n'),
    ("layers", "brothers below", "src/link/Bad.cpp", '#include "controls/MsgBox.h"\n'),
    ("layers", "into the top", "src/prefs/Bad.h", '#include "app/Start.h"\n'),
    ("layers", "around the corner", "src/core/Bad.h", '#include "../jobs/Turn.h"\n'),
    ("layers", "unknown folder", "src/misc/Bad.h", "\n"),
    ("layers", "beside the folders", "src/Bad.cpp", "\n"),
    ("layers", "widget in core", "src/core/Bad.cpp", "#include <QLabel>\n"),
    ("layers", "widget module in link", "src/link/Bad.cpp", "#include <QtWidgets>\n"),
    ("layers", "widget by its module", "src/link/Bad.cpp", "#include <QtWidgets/QLabel>\n"),
    ("layers", "widget in logic", "src/jobs/Turn.cpp", "#include <QWidget>\n"),
    ("layers", "widget through a header", "src/jobs/Turn.cpp", '#include "controls/View.h"\n',
     {"src/controls/View.h": "#include <QTreeView>\n"}),
    ("layers", "widget in a long-hand library", "src/session/Bad.cpp", "#include <QMenu>\n",
     {"src/session/CMakeLists.txt": "add_library(halvane_session_logic STATIC\n  Bad.cpp)\n"}),

    ("plain_text", "box", "src/session/Bad.cpp", "QMessageBox::warning(this, a, b);\n"),
    ("plain_text", "box in the practice court", "practice/Bad.cpp", "#include <QMessageBox>\n"),
    ("plain_text", "box of ours with any format", "src/controls/MsgBox.cpp", "QMessageBox b;\n"),
    ("plain_text", "label", "src/session/Bad.cpp", "auto *a = new QLabel(this);\n"),
    ("plain_text", "label in an initialiser", "src/session/Bad.cpp", "X::X() : a(new QLabel) {}\n"),
    ("plain_text", "label without a name", "src/session/Bad.cpp", "l->addWidget(new QLabel(t));\n"),
    ("plain_text", "label by make_unique", "src/session/Bad.cpp",
     "auto a = std::make_unique<QLabel>(t);\n"),
    ("plain_text", "label as a member", "src/session/Bad.h", "class X { QLabel a; };\n"),
    ("plain_text", "second label of a name", "src/session/Bad.cpp",
     "auto *a = new QLabel; a->setTextFormat(Qt::PlainText);\nauto *a = new QLabel;\n"),
    ("plain_text", "kind of label", "src/controls/Bad.h", "class X : public QLabel {};\n"),
    ("plain_text", "rich text", "src/session/Bad.cpp", "a->setTextFormat(Qt::RichText);\n"),
    ("plain_text", "label in a .ui file", "src/session/Bad.ui", LABEL_UI.format("")),
    ("plain_text", "other format in a .ui file", "src/session/Bad.ui",
     LABEL_UI.format(PLAIN_PROPERTY.replace("Plain", "Auto"))),
    ("plain_text", "broken .ui file", "src/session/Bad.ui", "<ui>"),
    ("plain_text", "connect by text", "tests/Bad.cpp", "connect(a, SIGNAL(x()), b, &B::x);\n"),
    ("plain_text", "slot by text", "src/core/Bad.cpp", "connect(a, &A::x, b, SLOT (x()));\n"),
    ("plain_text", "signals", "src/session/Bad.h", "signals:\n"),
    ("plain_text", "slots", "tests/Bad.h", "private slots:\n"),
    ("plain_text", "emit", "practice/Bad.cpp", "emit Done();\n"),
    ("plain_text", "foreach", "src/core/Bad.cpp", "foreach (int a, list) {}\n"),

    ("one_road", "request", "src/session/Bad.cpp", "if (SendReq(text) == 0) {}\n"),
    ("one_road", "reply", "src/namesearch/Bad.cpp", "auto r = ReadResponse ();\n"),
    ("one_road", "dialog", "src/prefs/Bad.cpp", "frmOpts(this).exec();\n"),
    ("one_road", "dialog on the heap", "src/prefs/Bad.cpp", "form->exec ();\n"),
    ("one_road", "loop", "src/jobs/Bad.cpp", "QEventLoop loop;\n"),
    ("one_road", "file", "src/reports/Bad.cpp", "QFileDialog::getSaveFileName(this);\n"),

    ("records", "label", "src/session/Bad.cpp", "if (ui->lblStatus->text().isEmpty())\n"),
    ("records", "text", "src/namesearch/Bad.cpp", "if (countyList->text() == last)\n"),
    ("records", "caption", "src/casedetails/Bad.cpp", "use(windowTitle());\n"),
    ("records", "cell", "src/casedetails/Bad.cpp", "if (grid.Cell(0, 0) == none)\n"),
    ("records", "look", "src/jobs/Bad.cpp", "if (stopButton->isEnabled())\n"),

    ("pages", "link", "docs/bad.md", "[None](none.md)\n"),
    ("pages", "link to a folder", "README.md", "[None](docs/none/)\n"),
    ("pages", "picture", "docs/bad.md", "![A form](images/form.png)\n"),
    ("pages", "heading", "docs/bad.md", "# Here\n[There](#there)\n"),
    ("pages", "heading of another page", "docs/bad.md", "[There](way.md#the-way-out)\n"),
    ("pages", "heading in a block of code", "docs/bad.md", "```\n# there\n```\n[There](#there)\n"),
    ("pages", "row of another table", "docs/bad.md", "| a | b |\n|---|---|\n| c | d | e |\n"),
    ("pages", "table without a head", "docs/bad.md", "Thus:\n\n|---|---|\n"),
    ("pages", "path", "docs/bad.md", "Read `src/core/Bad.cpp`.\n"),
    ("pages", "path without src", "src/core/README.md", "See `jobs/frmTurn`.\n"),
    ("pages", "path into no folder", "docs/bad.md", "It is in `misc/Bad.cpp`.\n"),
    ("pages", "path in a command", "docs/bad.md", "Run `tests/lint/bad.py .` now.\n"),
    ("pages", "path for those who only read", "docs/practice.md", "Read `practice/Bad.cpp`.\n",
     {"practice/Good.cpp": "\n"}),
    ("pages", "file", "docs/bad.md", "All is in `Bad.cpp`.\n"),
    ("pages", "name", "docs/bad.md", "`frmTwo` does it.\n"),
    ("pages", "name within another", "docs/bad.md", "`frmOne::Undone()` does it.\n"),
    ("pages", "name of which only a remark speaks", "docs/bad.md", "`theOldName` does it.\n",
     {"src/core/Remark.h": "// theOldName did it.\n"}),
    ("pages", "test in a command", "docs/bad.md", "`./test -R tst_Bad`\n", {"test": "\n"}),

    ("words", "on its own", "src/core/Bad.h", "// the told width\n"),
    ("words", "meant", "docs/bad.md", "It ends as told.\n"),
    ("words", "of whom", "docs/bad.md", "What the list told of the case stays.\n"),
    ("words", "by nobody", "src/core/Bad.h", "// It moves untold rows.\n"),
    ("words", "a variable", "tests/Bad.cpp", "QCOMPARE(row, told.row);\n"),
    ("words", "a name that begins so", "tests/Bad.cpp", "toldOf(act);\n"),
    ("words", "a type", "practice/Bad.h", "struct ToldCase\n"),
    ("words", "a name that ends so", "tests/Bad.h", "void theRuleIsTold();\n"),
    ("words", "a file", "practice/ToldNames.h", "\n"),
    ("one_table", "stop request", "src/namesearch/Bad.cpp", 'send(u"BKRPT~STOP~"_s);\n'),
    ("one_table", "stop request with bars", "src/casedetails/Bad.cpp", 'u"\\u00A6STOP"_s;\n'),
    ("one_table", "setting read", "src/link/Bad.cpp",
     'GetOptionStr(u"General"_s,\n    u"InactivityTimeOut"_s);\n'),
    ("one_table", "setting written", "src/prefs/Bad.cpp", 'SaveOptionStr(a, u"ShowAlerts"_s, b);\n'),
    ("one_table", "setting held", "src/app/Bad.cpp", 'HoldForThisRun(u"A"_s, u"B"_s, c);\n'),
    ("one_table", "the file itself", "src/app/Bad.cpp", 'setting.Init(u"Options.ini"_s);\n'),
    ("one_table", "joined line", "src/session/Bad.cpp", 'u"LOGON\\u00A6"_s + name;\n'),
    ("one_table", "joined line as it is", "src/session/Bad.cpp", 'u"LOGON\u00A6"_s + name;\n'),
    ("one_table", "bar", "src/searchentry/Bad.cpp", "constexpr QChar bar(u'\\u00a6');\n"),

    ("pages", "path in a block of code", "docs/bad.md", "```\nsrc/core/Nothing.h  a row\n```\n"),
    ("platform", "header", "src/session/Bad.cpp", "#include <unistd.h>\n"),
    ("platform", "header in a folder", "src/link/Bad.cpp", "# include <sys/socket.h>\n"),
    ("platform", "header in quotes", "src/link/Bad.cpp", '#include "windows.h"\n'),
    ("platform", "header with capitals", "src/link/Bad.cpp", "#include <Windows.h>\n"),
    ("platform", "header with capitals in quotes", "src/link/Bad.cpp", '#include "Windows.h"\n'),
    ("platform", "header of signals", "src/main.cpp", "#include <csignal>\n"),
    ("platform", "which system", "practice/Bad.h", "#ifdef Q_OS_WIN\n#endif\n"),
    ("platform", "which system, by the compiler", "src/core/Bad.cpp", "#if defined(__linux__)\n"),
    ("platform", "which system, as it runs", "src/prefs/Bad.cpp", "QOperatingSystemVersion::current();\n"),
    ("platform", "which compiler", "src/core/Bad.cpp", "#ifdef _MSC_VER\n#endif\n"),
    ("platform", "which system, by its name", "src/core/Bad.cpp",
     'return QSysInfo::kernelType() == u"linux"_s;\n'),
    ("platform", "which windows", "src/app/Bad.cpp",
     'return QGuiApplication::platformName() != u"xcb"_s;\n'),
    ("platform", "call that ends a process", "src/app/Bad.cpp", "kill(other, 9);\n"),
    ("platform", "call of a mode", "src/app/Bad.cpp", "umask(077);\n"),
    ("platform", "call for a terminal", "src/app/Bad.cpp", "return isatty(1) != 0;\n"),
    ("platform", "command line", "src/app/Bad.cpp", 'std::system("ls");\n'),
    ("platform", "folder of a user", "src/app/Bad.cpp", 'read(u"/home/clerk"_s);\n'),
    ("platform", "call", "src/documents/Bad.cpp", "if (::open(name, 0) < 0)\n"),
    ("platform", "call without colons", "src/app/Bad.cpp", "return getpid() == 1;\n"),
    ("platform", "signal", "src/app/Bad.cpp", "end(SIGTERM);\n"),
    ("platform", "folder of the system", "src/app/Bad.cpp", 'read(u"/proc/self/stat"_s);\n'),
    ("platform", "temporary folder", "practice/Bad.cpp", 'write(u"/tmp/x"_s);\n'),
    ("platform", "helper of the desktop", "src/reports/Bad.cpp", 'run(u"xdg-open"_s);\n'),

    ("house", "long file", "src/core/Bad.cpp", "\n" * 601),
    ("house", "long without a reason", "src/core/Bad.h", "// Long by design: \n" + "\n" * 601),
    ("house", "class of too many functions", "src/core/Bad.h", full_class(61)),
    ("house", "struct of too many functions", "src/core/Bad.h",
     full_class(61).replace("class Full", "struct Full")),
    ("house", "inner class of too many functions", "src/core/Bad.h",
     "class Outer\n{\n" + full_class(61) + "};\n"),
    ("house", "paper", "src/core/Bad.h", f"// as the {PAPER} says\n"),
    ("house", "paper, short and large", "docs/bad.md", "see the " + PAPER[:4].upper() + "S.\n"),
    ("house", "chapter", "data/bad.txt", f"see {CHAPTER}\n"),
    ("house", "paper in a file's name", f"docs/{PAPER}.md", "\n"),
    ("house", "skipped test", "tests/Bad.cpp", 'QSKIP("later");\n'),
    ("house", "test expected to fail", "tests/Bad.cpp", 'QEXPECT_FAIL("", "x", Continue);\n'),
    ("house", "test that cannot fail", "tests/Bad.cpp", "QVERIFY( true);\n"),
    ("house", "note", "src/core/Bad.cpp", "// TODO: the rest\n"),
    ("house", "note in a script", "tools/bad", "# FIXME\n"),
    ("house", "note by a mark", "src/core/Bad.cpp", "// XXX slow\n"),
]


class Lints(unittest.TestCase):
    def run_lint(self, lint, tree):
        with tempfile.TemporaryDirectory() as root:
            for path, content in tree.items():
                full = os.path.join(root, path)
                os.makedirs(os.path.dirname(full), exist_ok=True)
                with open(full, "w", encoding="utf-8") as file:
                    file.write(content)
            return subprocess.run(
                [sys.executable, os.path.join(HERE, lint + ".py"), root],
                capture_output=True, text=True, check=False,
            )

    def test_a_clean_tree_passes(self):
        for lint in LINTS:
            with self.subTest(lint):
                done = self.run_lint(lint, CLEAN_TREE)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_every_offence_is_found(self):
        for lint, kind, path, content, *more in OFFENCES:
            with self.subTest(f"{lint}: {kind}"):
                tree = {**CLEAN_TREE, **(more[0] if more else {}), path: content}
                done = self.run_lint(lint, tree)
                self.assertEqual((done.returncode, done.stderr), (1, ""))
                # The offence that was planted, and no other.
                self.assertEqual({line.split(":")[0] for line in done.stdout.splitlines()}, {path})

    def test_a_wrong_call_is_no_pass(self):
        for lint in LINTS:
            done = subprocess.run(
                [sys.executable, os.path.join(HERE, lint + ".py"), "/no/such/folder"],
                capture_output=True, check=False,
            )
            self.assertNotEqual(done.returncode, 0)


if __name__ == "__main__":
    unittest.main()
