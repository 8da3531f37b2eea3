#include "quiz/ui/test_window.h"

#include "core/session.h"
#include "quiz/texts.h"
#include "store/paths.h"
#include "widgets/controls.h"
#include "widgets/list_box.h"

#include <QEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quorvane {

namespace {

constexpr int kTextPoints = 10;
constexpr int kWordPoints = 24;
constexpr int kChoicePoints = 12;
constexpr int kEnterKey = 13;
constexpr int kDefaultQuestions = 10;
constexpr int kDefaultSeconds = 10;
const QColor kWrongColour(255, 128, 0);
constexpr int kSetUpWidth = 300;

// Draws a label's text with each carriage return as a line break: the feedback and the summary
// hold a lone CR between their two lines, which a label would otherwise not break on.
class ReturnBreaksLine : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* label = qobject_cast<QLabel*>(watched);
        if (!label || event->type() != QEvent::Paint || !label->text().contains(u'\r'))
            return false;
        QPainter painter(label);
        painter.setFont(label->font());
        painter.setPen(label->palette().color(QPalette::WindowText));
        painter.drawText(label->contentsRect(), int(label->alignment()) | Qt::TextWordWrap,
                         QString(label->text()).replace(u'\r', u'\n'));
        return true;
    }
};

} // namespace

TestWindow::TestWindow(Session& session, QWidget* parent) : ActivityWindow(session, parent)
{
    setObjectName(QStringLiteral("test"));
    setWindowTitle(quiz_texts::kTestTitle);
    setFont(controls::font(controls::kArial, kTextPoints));
    buildControls();
    buildLayout();
}

void TestWindow::buildControls()
{
    const QFont text = controls::font(controls::kArial, kTextPoints);
    const QFont bold = controls::font(controls::kArial, kTextPoints, true);
    language_name = controls::label(this, QStringLiteral("language_name"), QString(), bold);
    list_name = controls::label(this, QStringLiteral("list_name"), QString(), bold);
    user_name = controls::label(this, QStringLiteral("user_name"), QString(), bold);
    Label3 = controls::label(this, QStringLiteral("Label3"), quiz_texts::kChooseListCaption, text);
    list1 = controls::listBox(this, QStringLiteral("list1"), text);
    Label2 = controls::label(this, QStringLiteral("Label2"), quiz_texts::kChooseTextOrSoundCaption, text);
    List2 = controls::listBox(this, QStringLiteral("List2"), text);
    q_lbl = controls::label(this, QStringLiteral("q_lbl"), quiz_texts::kQuestionsCaption, text);
    num_qs = controls::lineEdit(this, QStringLiteral("num_qs"), text);
    sec_lbl = controls::label(this, QStringLiteral("sec_lbl"), quiz_texts::kSecondsCaption, text);
    num_secs = controls::lineEdit(this, QStringLiteral("num_secs"), text);
    multiple_choice =
        controls::optionButton(this, QStringLiteral("multiple_choice"), quiz_texts::kMultipleChoiceCaption, text);
    spelling = controls::optionButton(this, QStringLiteral("spelling"), quiz_texts::kSpellingCaption, text);
    fill_in_blank =
        controls::optionButton(this, QStringLiteral("fill_in_blank"), quiz_texts::kFillInBlankCaption, text);
    multiple_choice->setChecked(true);
    // A first Begin Test works: ten questions of ten seconds each.
    num_qs->setText(QString::number(kDefaultQuestions));
    num_secs->setText(QString::number(kDefaultSeconds));
    begin_test = controls::button(this, QStringLiteral("begin_test"), quiz_texts::kBeginCaption, bold);
    stop = controls::button(this, QStringLiteral("stop"), quiz_texts::kStopCaption, text);
    exit = controls::button(this, QStringLiteral("exit"), quiz_texts::kExitCaption, text);
    test_word = controls::label(this, QStringLiteral("test_word"), QString(),
                                controls::font(controls::kArial, kWordPoints, true));
    remaining = controls::label(this, QStringLiteral("remaining"), QString(), text);
    time_remaining = controls::label(this, QStringLiteral("time_remaining"), QString(),
                                     controls::font(controls::kArial, kChoicePoints, true));
    previous_word = controls::label(this, QStringLiteral("previous_word"), QString(),
                                    controls::font(controls::kArial, kChoicePoints));
    answer_lbl = controls::label(this, QStringLiteral("answer_lbl"), quiz_texts::kAnswerCaption, text);
    Text1 = controls::lineEdit(this, QStringLiteral("Text1"), controls::font(controls::kArial, kChoicePoints));
    const QFont choiceFont = controls::font(controls::kArial, kChoicePoints);
    for (int k = 1; k <= 6; ++k) {
        QPushButton* choice = controls::button(this, QStringLiteral("c%1").arg(k), QString(), choiceFont);
        choice->setMinimumHeight(40);
        choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        m_choices.append(choice);
        connect(choice, &QPushButton::clicked, this, [this, k] { c_click(k); });
    }
    c1 = m_choices[0];
    c2 = m_choices[1];
    c3 = m_choices[2];
    c4 = m_choices[3];
    c5 = m_choices[4];
    c6 = m_choices[5];
    controls::labelFor(Label3, list1);
    controls::labelFor(Label2, List2);
    controls::labelFor(q_lbl, num_qs);
    controls::labelFor(sec_lbl, num_secs);
    controls::labelFor(answer_lbl, Text1);
    controls::tabOrder({list1, List2, num_qs, num_secs, multiple_choice, spelling, fill_in_blank, begin_test, Text1, c1,
                        c2, c3, c4, c5, c6, stop, exit});
    test_word->setAlignment(Qt::AlignCenter);
    test_word->setWordWrap(true);
    time_remaining->setStyleSheet(QStringLiteral("color: #12306b;"));
    previous_word->setAutoFillBackground(true);
    previous_word->setWordWrap(true);
    previous_word->setMinimumHeight(48);
    auto* breaks = new ReturnBreaksLine(this);
    test_word->installEventFilter(breaks);
    previous_word->installEventFilter(breaks);

    connect(multiple_choice, &QRadioButton::clicked, this, &TestWindow::multiple_choice_click);
    connect(spelling, &QRadioButton::clicked, this, &TestWindow::spelling_click);
    connect(fill_in_blank, &QRadioButton::clicked, this, &TestWindow::fill_in_blank_click);
    connect(begin_test, &QPushButton::clicked, this, &TestWindow::begin_test_click);
    connect(stop, &QPushButton::clicked, this, &TestWindow::stop_click);
    connect(exit, &QPushButton::clicked, this, &TestWindow::exit_click);
    connect(Text1, &QLineEdit::returnPressed, this, [this] { Text1_keypress(kEnterKey); });
}

void TestWindow::buildLayout()
{
    auto* names = new QHBoxLayout;
    for (QLabel* label : {language_name, list_name, user_name})
        names->addWidget(label, 1);

    auto* kinds = new QGroupBox(this);
    auto* kindRows = new QVBoxLayout(kinds);
    for (QRadioButton* option : {multiple_choice, spelling, fill_in_blank})
        kindRows->addWidget(option);

    auto* setUp = new QVBoxLayout;
    setUp->addWidget(Label3);
    setUp->addWidget(list1);
    setUp->addWidget(Label2);
    setUp->addWidget(List2);
    setUp->addWidget(q_lbl);
    setUp->addWidget(num_qs);
    setUp->addWidget(sec_lbl);
    setUp->addWidget(num_secs);
    setUp->addWidget(kinds);
    setUp->addWidget(begin_test);
    setUp->addWidget(stop);
    setUp->addWidget(exit);
    setUp->addStretch(1);
    for (ListBox* box : {list1, List2})
        box->setMaximumHeight(64);
    begin_test->setMinimumHeight(32);

    auto* choices = new QGridLayout;
    for (int i = 0; i < m_choices.size(); ++i)
        choices->addWidget(m_choices[i], i / 2, i % 2);
    auto* answer = new QHBoxLayout;
    answer->addWidget(answer_lbl);
    answer->addWidget(Text1, 1);

    auto* question = new QVBoxLayout;
    question->addWidget(remaining);
    question->addWidget(test_word, 1);
    question->addWidget(time_remaining);
    question->addLayout(choices);
    question->addLayout(answer);
    question->addWidget(previous_word);

    auto* setUpColumn = new QWidget(this);
    setUpColumn->setLayout(setUp);
    setUpColumn->setFixedWidth(kSetUpWidth);
    setUp->setContentsMargins(0, 0, 0, 0);
    auto* questionColumn = new QWidget(this);
    questionColumn->setLayout(question);
    question->setContentsMargins(0, 0, 0, 0);
    auto* columns = new QHBoxLayout;
    columns->addWidget(setUpColumn);
    columns->addWidget(questionColumn, 1);
    auto* page = new QVBoxLayout(this);
    page->addLayout(names);
    page->addLayout(columns, 1);
    resize(860, 520);
}

void TestWindow::form_load()
{
    const Session& s = m_session;
    language_name->setText(quiz_texts::languageLabel(s.current_language));
    list_name->setText(quiz_texts::listLabel(s.current_list));
    user_name->setText(quiz_texts::userLabel(s.user_name));
    const bool master = QFileInfo::exists(paths::masterFile(s.languages_folder, s.current_language));
    list1->clear();
    list1->addItems(quiz_texts::sourceRows(master));
    List2->clear();
    List2->addItems(quiz_texts::kPresentationRows);
    list1->setRowQuietly(0);
    List2->setRowQuietly(0);
}

QString TestWindow::questionsText() const
{
    return num_qs->text();
}

QString TestWindow::secondsText() const
{
    return num_secs->text();
}

int TestWindow::sourceRow() const
{
    return list1->currentRow();
}

int TestWindow::presentationRow() const
{
    return List2->currentRow();
}

TestKind TestWindow::kind() const
{
    if (spelling->isChecked())
        return TestKind::spelling;
    if (fill_in_blank->isChecked())
        return TestKind::fillInBlank;
    return TestKind::multipleChoice;
}

QString TestWindow::typedText() const
{
    return Text1->text();
}

void TestWindow::showAnswerBox(bool visible)
{
    Text1->setVisible(visible);
    answer_lbl->setVisible(visible);
}

void TestWindow::clearTypedText()
{
    Text1->clear();
    // Each typed question starts with the answer box ready for the first key.
    if (!Text1->isHidden())
        Text1->setFocus();
}

void TestWindow::showWord(const QString& text)
{
    test_word->setText(text);
}

void TestWindow::showRemaining(const QString& text)
{
    remaining->setText(text);
}

void TestWindow::showCountdown(const QString& bar)
{
    time_remaining->setText(bar);
}

void TestWindow::showChoices(const QStringList& captions)
{
    for (int i = 0; i < m_choices.size(); ++i)
        m_choices[i]->setText(captions.value(i));
}

void TestWindow::showFeedback(const QString& text, bool wrong)
{
    previous_word->setText(text);
    QPalette palette = previous_word->palette();
    palette.setColor(QPalette::Window, wrong ? kWrongColour : QWidget::palette().color(QPalette::Button));
    previous_word->setPalette(palette);
}

void TestWindow::showListChoice(bool visible)
{
    List2->setVisible(visible);
    Label2->setVisible(visible);
}

void TestWindow::multiple_choice_click()
{
    showListChoice(true);
}

void TestWindow::spelling_click()
{
    // Spelling is always asked by sound.
    showListChoice(false);
}

void TestWindow::fill_in_blank_click()
{
    showListChoice(true);
}

void TestWindow::begin_test_click()
{
    guardedWait([this] { quorvane::begin_test(m_session, *this, m_state, this); });
}

void TestWindow::stop_click()
{
    guarded([this] { stop_test(m_session, *this, m_state); });
}

void TestWindow::exit_click()
{
    exit_test(m_session);
    close();
}

void TestWindow::c_click(int number)
{
    if (const QPushButton* choice = m_choices.value(number - 1))
        give_answer(m_session, m_state, choice->text());
}

void TestWindow::Text1_keypress(int keyAscii)
{
    if (keyAscii == kEnterKey)
        give_answer(m_session, m_state, Text1->text());
}

} // namespace quorvane
