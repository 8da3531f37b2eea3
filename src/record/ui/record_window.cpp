#include "record/ui/record_window.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "record/record_lists.h"
#include "record/texts.h"
#include "sound/spoken_words.h"
#include "sound/texts.h"
#include "store/paths.h"
#include "widgets/announce_texts.h"
#include "widgets/controls.h"
#include "widgets/list_box.h"

#include <QCheckBox>
#include <QColor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorvane {

namespace {

const QColor kOrange(255, 128, 0);
const QColor kYellow(255, 255, 0);
const QColor kWhite(255, 255, 255);
const QColor kGrey(192, 192, 192);

// The duration buttons, row by row: name_single records one word, name_many word after word, each
// recording lasting the row's seconds (single precision, as stored in record_seconds).
struct DurationRow
{
    QPushButton* RecordWindow::*single;
    QPushButton* RecordWindow::*many;
    const char* name;
    const char* caption;
    float seconds;
};

constexpr DurationRow kDurationRows[] = {
    {&RecordWindow::point8_single, &RecordWindow::point8_many, "point8", "0.8 second", 0.8f},
    {&RecordWindow::one_single, &RecordWindow::one_many, "one", "1 second", 1.0f},
    {&RecordWindow::one2_single, &RecordWindow::one2_many, "one2", "1.2 second", 1.2f},
    {&RecordWindow::one4_single, &RecordWindow::one4_many, "one4", "1.4 seconds", 1.4f},
    {&RecordWindow::one8_single, &RecordWindow::one8_many, "one8", "1.8 seconds", 1.8f},
    {&RecordWindow::two_sec_single, &RecordWindow::two_sec_many, "two_sec", "2 seconds", 2.0f},
    {&RecordWindow::two4_single, &RecordWindow::two4_many, "two4", "2.4 seconds", 2.4f},
    {&RecordWindow::two7_single, &RecordWindow::two7_many, "two7", "2.7 seconds", 2.7f},
    {&RecordWindow::three_sec_single, &RecordWindow::three_sec_many, "three_sec", "3 seconds", 3.0f},
    {&RecordWindow::three5_single, &RecordWindow::three5_many, "three5", "3.5 seconds", 3.5f},
    {&RecordWindow::four_single, &RecordWindow::four_many, "four", "4 seconds", 4.0f},
    {&RecordWindow::four5_single, &RecordWindow::four5_many, "four5", "4.5 seconds", 4.5f},
    {&RecordWindow::five_single, &RecordWindow::five_many, "five", "5 seconds", 5.0f},
};

void setBackground(QWidget* widget, QPalette::ColorRole role, const QColor& colour)
{
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
}

void fill(ListBox* box, const QStringList& texts, int count)
{
    box->clear();
    box->addItems(texts.mid(0, count));
}

} // namespace

RecordWindow::RecordWindow(Session& session, QWidget* parent) : ActivityWindow(session, parent)
{
    setObjectName(QStringLiteral("qvrecord"));
    setWindowTitle(record_texts::kWindowTitle);
    setFont(controls::font(controls::kSansSerif, 8));
    buildControls();
    buildLayout();
    wireHandlers();
}

QPushButton* RecordWindow::makeButton(const QString& name, const QString& caption)
{
    return controls::button(this, name, caption, controls::font(controls::kSansSerif, 8));
}

QLabel* RecordWindow::makeLabel(const QString& name, const QString& caption, int points, bool bold)
{
    return controls::label(this, name, caption, controls::font(controls::kSansSerif, points, bold));
}

void RecordWindow::buildControls()
{
    const QFont listFont = controls::font(controls::kSansSerif, 10);
    span_list_w = controls::listBox(this, QStringLiteral("span_list_w"), listFont);
    eng_list_w = controls::listBox(this, QStringLiteral("eng_list_w"), listFont);
    span_list_wo = controls::listBox(this, QStringLiteral("span_list_wo"), listFont);
    eng_list_wo = controls::listBox(this, QStringLiteral("eng_list_wo"), listFont);
    words_with_sound = makeLabel(QStringLiteral("words_with_sound"), record_texts::kWithSoundsCaption, 10, true);
    words_without_sound =
        makeLabel(QStringLiteral("words_without_sound"), record_texts::kWithoutSoundsCaption, 10, true);
    left_word = controls::lineEdit(this, QStringLiteral("left_word"), controls::font(controls::kSansSerif, 10, true));
    right_word = controls::lineEdit(this, QStringLiteral("right_word"), controls::font(controls::kSansSerif, 10, true));
    setBackground(left_word, QPalette::Base, kWhite);
    controls::announceAs(span_list_w, announce_texts::kWordsWithSounds);
    controls::announceAs(eng_list_w, announce_texts::kTranslationsWithSounds);
    controls::announceAs(span_list_wo, announce_texts::kWordsWithoutSounds);
    controls::announceAs(eng_list_wo, announce_texts::kTranslationsWithoutSounds);
    controls::announceAs(left_word, announce_texts::kWord);
    controls::announceAs(right_word, announce_texts::kTranslation);
    setBackground(right_word, QPalette::Base, kGrey);
    filenum_lbl = makeLabel(QStringLiteral("filenum_lbl"), QString(), 10, true);
    take_level_lbl = makeLabel(QStringLiteral("take_level_lbl"), QString(), 9);
    current_list = makeLabel(QStringLiteral("current_list"), record_texts::kCurrentListPlaceholder, 10, true);
    Label1 = makeLabel(QStringLiteral("Label1"), record_texts::kListNameLabel, 10);
    Label2 = makeLabel(QStringLiteral("Label2"), record_texts::kRecordSelectedLabel, 9, true);
    Label3 = makeLabel(QStringLiteral("Label3"), record_texts::kRecordMultipleLabel, 9, true);
    Label4 = makeLabel(QStringLiteral("Label4"), record_texts::kEditHint);
    Label5 = makeLabel(QStringLiteral("Label5"), record_texts::kTitleLabel, 14, true);
    Label6 = makeLabel(QStringLiteral("Label6"), record_texts::kAbout);
    for (QLabel* label : {Label4, Label6})
        label->setWordWrap(true);
    countdown = makeLabel(QStringLiteral("countdown"), QString(), 24, true);
    countdown->setAlignment(Qt::AlignCenter);
    countdown->setAutoFillBackground(true);
    countdown->setMinimumHeight(48);
    // Long packing texts wrap inside the column instead of widening the window.
    countdown->setWordWrap(true);
    countdown->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    for (const DurationRow& row : kDurationRows) {
        const QString caption = QString::fromLatin1(row.caption);
        this->*row.single = makeButton(QString::fromLatin1(row.name) + QStringLiteral("_single"), caption);
        this->*row.many = makeButton(QString::fromLatin1(row.name) + QStringLiteral("_many"), caption);
    }
    unlimited = makeButton(QStringLiteral("unlimited"), record_texts::kUnlimitedCaption);
    stop_auto_record = makeButton(QStringLiteral("stop_auto_record"), record_texts::kStopCaption);
    stop_auto_record->setFont(controls::font(controls::kSansSerif, 12, true));
    record_speed = makeButton(QStringLiteral("record_speed"), record_texts::kFastCaption);
    Check1 = controls::checkBox(this, QStringLiteral("Check1"), record_texts::kKeepSilenceCaption,
                                controls::font(controls::kSansSerif, 8));

    add_word = makeButton(QStringLiteral("add_word"), record_texts::kAddWordCaption);
    save_text = makeButton(QStringLiteral("save_text"), record_texts::kSaveTextCaption);
    delete_word = makeButton(QStringLiteral("delete_word"), record_texts::kDeleteWordCaption);
    refresh_lists = makeButton(QStringLiteral("refresh_lists"), record_texts::kRefreshCaption);
    exit_button = makeButton(QStringLiteral("exit_button"), record_texts::kExitCaption);
    Command1 = makeButton(QStringLiteral("Command1"), record_texts::kAdvancedEditingCaption);
    instructions_text = makeButton(QStringLiteral("instructions_text"), record_texts::kTextInstructionsCaption);
    instructions_record = makeButton(QStringLiteral("instructions_record"), record_texts::kRecordInstructionsCaption);
    license = makeButton(QStringLiteral("license"), record_texts::kLicenseCaption);
    zip = makeButton(QStringLiteral("zip"), record_texts::kZipCaption);
}

void RecordWindow::buildLayout()
{
    auto* lists = new QGridLayout;
    lists->addWidget(words_with_sound, 0, 0, 1, 2);
    lists->addWidget(span_list_w, 1, 0);
    lists->addWidget(eng_list_w, 1, 1);
    lists->addWidget(words_without_sound, 2, 0, 1, 2);
    lists->addWidget(span_list_wo, 3, 0);
    lists->addWidget(eng_list_wo, 3, 1);

    auto* name = new QHBoxLayout;
    name->addWidget(Label1);
    name->addWidget(current_list, 1);
    auto* file = new QHBoxLayout;
    file->addWidget(filenum_lbl);
    file->addSpacing(16);
    file->addWidget(take_level_lbl, 1);

    // Two columns of duration buttons: one word on the left, word after word on the right.
    auto* durations = new QGridLayout;
    durations->addWidget(Label2, 0, 0);
    durations->addWidget(Label3, 0, 1);
    const int rows = int(std::size(kDurationRows));
    for (int i = 0; i < rows; ++i) {
        durations->addWidget(this->*kDurationRows[i].single, i + 1, 0);
        durations->addWidget(this->*kDurationRows[i].many, i + 1, 1);
    }
    durations->addWidget(unlimited, rows + 1, 0);
    // Tab follows the columns: the lists, the word and its editing, then the durations row by row.
    QList<QWidget*> order{span_list_w, eng_list_w,        span_list_wo,        eng_list_wo, left_word,     right_word,
                          Check1,      add_word,          save_text,           delete_word, refresh_lists, Command1,
                          zip,         instructions_text, instructions_record, license,     exit_button};
    for (const DurationRow& row : kDurationRows)
        order << this->*row.single << this->*row.many;
    controls::tabOrder(order << unlimited << record_speed << stop_auto_record);
    durations->addWidget(record_speed, rows + 1, 1);

    auto* recording = new QVBoxLayout;
    recording->addWidget(countdown);
    recording->addLayout(durations);
    stop_auto_record->setMinimumHeight(40);
    recording->addWidget(stop_auto_record);
    recording->addStretch(1);

    auto* editing = new QGridLayout;
    editing->addWidget(add_word, 0, 0);
    editing->addWidget(save_text, 0, 1);
    editing->addWidget(delete_word, 1, 0);
    editing->addWidget(refresh_lists, 1, 1);
    editing->addWidget(Command1, 2, 0);
    editing->addWidget(zip, 2, 1);
    editing->addWidget(instructions_text, 3, 0);
    editing->addWidget(instructions_record, 3, 1);
    editing->addWidget(license, 4, 0);
    editing->addWidget(exit_button, 4, 1);

    auto* middle = new QVBoxLayout;
    middle->addWidget(Label5);
    middle->addLayout(name);
    middle->addSpacing(8);
    middle->addWidget(left_word);
    middle->addWidget(right_word);
    middle->addLayout(file);
    middle->addWidget(Label4);
    middle->addWidget(Check1);
    middle->addSpacing(8);
    middle->addLayout(editing);
    middle->addSpacing(8);
    middle->addWidget(Label6);
    middle->addStretch(1);

    auto* columns = new QHBoxLayout(this);
    columns->addLayout(lists, 5);
    columns->addLayout(middle, 4);
    columns->addLayout(recording, 3);
    resize(1180, 720);
}

void RecordWindow::wireHandlers()
{
    span_list_w->onClick = [this] { span_list_w_click(); };
    span_list_wo->onClick = [this] { span_list_wo_click(); };
    eng_list_w->onClick = [this] { eng_list_w_click(); };
    eng_list_wo->onClick = [this] { eng_list_wo_click(); };
    const QList<QPair<QPushButton*, void (RecordWindow::*)()>> buttons{
        {unlimited, &RecordWindow::unlimited_click},
        {stop_auto_record, &RecordWindow::stop_auto_record_click},
        {record_speed, &RecordWindow::record_speed_click},
        {refresh_lists, &RecordWindow::refresh_lists_click},
        {exit_button, &RecordWindow::exit_button_click},
        {instructions_text, &RecordWindow::instructions_text_click},
        {instructions_record, &RecordWindow::instructions_record_click},
        {license, &RecordWindow::license_click},
        {add_word, &RecordWindow::add_word_click},
        {save_text, &RecordWindow::save_text_click},
        {delete_word, &RecordWindow::delete_word_click},
        {Command1, &RecordWindow::Command1_click},
        {zip, &RecordWindow::zip_click}};
    for (const auto& [button, handler] : buttons)
        connect(button, &QPushButton::clicked, this, handler);
    for (const DurationRow& row : kDurationRows) {
        connect(this->*row.single, &QPushButton::clicked, this, [this, &row] { record(row.seconds, true); });
        connect(this->*row.many, &QPushButton::clicked, this, [this, &row] { record(row.seconds, false); });
    }
}

// ---- RecordView

ListBox* RecordWindow::spanList(const QString& kind) const
{
    return kind == kWithSounds ? span_list_w : span_list_wo;
}

ListBox* RecordWindow::engList(const QString& kind) const
{
    return kind == kWithSounds ? eng_list_w : eng_list_wo;
}

int RecordWindow::selectedRow(const QString& kind) const
{
    return spanList(kind)->currentRow();
}

bool RecordWindow::selectRow(const QString& kind, int row)
{
    return select_row(spanList(kind), row);
}

void RecordWindow::showFileNumber(const QString& caption)
{
    filenum_lbl->setText(caption);
}

void RecordWindow::showCountdown(const QString& text)
{
    countdown->setText(text);
}

void RecordWindow::colourSession(SessionColour colour)
{
    switch (colour) {
    case SessionColour::orange:
        setBackground(left_word, QPalette::Base, kOrange);
        setBackground(countdown, QPalette::Window, kOrange);
        break;
    case SessionColour::yellow:
        setBackground(left_word, QPalette::Base, kYellow);
        setBackground(countdown, QPalette::Window, kYellow);
        break;
    case SessionColour::idle:
        setBackground(left_word, QPalette::Base, kWhite);
        setBackground(countdown, QPalette::Window, palette().color(QPalette::Button));
        break;
    }
}

void RecordWindow::showTake(const QString& text)
{
    take_level_lbl->setText(text);
}

// ---- handlers

void RecordWindow::form_load()
{
    guarded([this] {
        Session& s = m_session;
        current_list->setText(s.current_list);
        s.list_file = paths::listFile(s.languages_folder, s.current_language, s.current_list);
        changes_file = paths::changesFile(s.languages_folder, s.current_language);
        show();
        raise();
        create_arrays();
    });
}

void RecordWindow::create_arrays()
{
    guarded([this] {
        QString error;
        const std::optional<RecordLists> lists = m_session.one_word_mode == flags::kYes
                                                     ? quorvane::create_word(m_session)
                                                     : quorvane::create_arrays(m_session, &error);
        if (!lists) {
            m_session.prompts.message(error);
            return;
        }
        state.lists = *lists;
        fill(span_list_w, state.lists.with.words, state.lists.with.count);
        fill(eng_list_w, state.lists.with.translations, state.lists.with.count);
        fill(span_list_wo, state.lists.without.words, state.lists.without.count);
        fill(eng_list_wo, state.lists.without.translations, state.lists.without.count);
        words_with_sound->setText(state.lists.withCaption);
        words_without_sound->setText(state.lists.withoutCaption);
    });
}

void RecordWindow::wordClicked(const QString& kind)
{
    // The chosen word's sound plays inside this handler.
    guardedWait([this, &kind] {
        const int row = spanList(kind)->currentRow();
        engList(kind)->setRowQuietly(row);
        // A word the user picks shows no take of another; a recording run moving on keeps its last.
        if (m_session.recording_active != flags::kYes)
            take_level_lbl->clear();
        const ChosenRow chosen = choose_row(state, kind, row);
        const QFont font = controls::font(controls::kSansSerif, chosen.font.points, chosen.font.bold);
        left_word->setFont(font);
        right_word->setFont(font);
        left_word->setText(chosen.word);
        right_word->setText(engList(kind)->currentItem() ? engList(kind)->currentItem()->text() : QString());
        const bool spoken =
            would_synthesize(m_session, state.current_sound_number, m_session.current_language, chosen.word);
        filenum_lbl->setText(chosen.fileCaption + (spoken ? sound_texts::kSynthesizedMark : QString()));
        play_chosen(m_session, state, chosen.word);
    });
}

void RecordWindow::span_list_w_click()
{
    wordClicked(kWithSounds);
}

void RecordWindow::span_list_wo_click()
{
    wordClicked(kWithoutSounds);
}

void RecordWindow::eng_list_w_click()
{
    select_row(span_list_w, eng_list_w->currentRow());
}

void RecordWindow::eng_list_wo_click()
{
    select_row(span_list_wo, eng_list_wo->currentRow());
}

void RecordWindow::record(float seconds, bool single)
{
    guardedWait([this, seconds, single] { start_recording(m_session, state, *this, this, seconds, single); });
}

void RecordWindow::misc_rec()
{
    guardedWait([this] { quorvane::misc_rec(m_session, state, *this, this); });
}

// "No time limit" is one word of at most 30 seconds, as it always has been.
void RecordWindow::unlimited_click()
{
    record(30.0f, true);
}

void RecordWindow::stop_auto_record_click()
{
    m_session.stop_flag = flags::kYes;
}

void RecordWindow::record_speed_click()
{
    guarded([this] { record_speed->setText(toggle_record_speed(m_session, state)); });
}

void RecordWindow::refresh_lists_click()
{
    create_arrays();
}

void RecordWindow::exit_button_click()
{
    close();
}

void RecordWindow::instructions_text_click()
{
    m_session.prompts.message(record_texts::kTextInstructions);
}

void RecordWindow::instructions_record_click()
{
    m_session.prompts.message(record_texts::kRecordInstructions);
}

void RecordWindow::license_click()
{
    m_session.prompts.message(record_texts::kLicense);
}

void RecordWindow::unloading()
{
    m_session.stop_flag = flags::kYes;
}

} // namespace quorvane
