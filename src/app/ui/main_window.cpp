#include "app/ui/main_window.h"

#include "app/start_up.h"
#include "app/texts.h"
#include "core/flags.h"
#include "core/product.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/sound_library.h"
#include "sound/texts.h"
#include "store/texts.h"
#include "widgets/announce_texts.h"
#include "widgets/controls.h"
#include "widgets/handler_guard.h"
#include "widgets/list_box.h"
#include "widgets/window_geometry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace quorvane {

namespace {

constexpr int kSmallListPoints = 8;
constexpr int kLargeListPoints = 10;
// The remembered state of the speak_missing_words menu item (on until switched off).
const QString kSpeakMissingWordsKey = QStringLiteral("speech/speak_missing_words");

bool rememberedSpeech()
{
    return QSettings(product::kName, QStringLiteral("quorvane")).value(kSpeakMissingWordsKey, true).toBool();
}

void rememberSpeech(bool on)
{
    QSettings(product::kName, QStringLiteral("quorvane")).setValue(kSpeakMissingWordsKey, on);
}

QFont smallFont(const QString& family)
{
    return controls::font(family, kSmallListPoints);
}

} // namespace

MainWindow::MainWindow(Prompts& prompts, SoundLibrary& sound, Clock& clock, QWidget* parent)
    : QMainWindow(parent), m_session(std::make_unique<Session>(prompts, sound, clock))
{
    setObjectName(QStringLiteral("qvmain"));
    setWindowTitle(main_texts::kWindowTitle);
    setFont(smallFont(controls::kArial));
    buildControls();
    buildMenus();
    wireHandlers();
    keepWindowGeometry(this);
    m_session->attachMainView(this);
}

MainWindow::~MainWindow()
{
    m_session->attachMainView(nullptr);
}

QLabel* MainWindow::makeLabel(const QString& name)
{
    return controls::label(centralWidget(), name, main_texts::caption(name), smallFont(controls::kSansSerif));
}

QPushButton* MainWindow::makeButton(const QString& name, const QString& family)
{
    return controls::button(centralWidget(), name, main_texts::caption(name), smallFont(family));
}

void MainWindow::buildControls()
{
    auto* central = new QWidget(this);
    setCentralWidget(central);

    const QFont sansSerif = smallFont(controls::kSansSerif);
    lang_list = controls::listBox(central, QStringLiteral("lang_list"), sansSerif);
    lists_list = controls::listBox(central, QStringLiteral("lists_list"), sansSerif);
    known_lists = controls::listBox(central, QStringLiteral("known_lists"), sansSerif);
    words_list = controls::listBox(central, QStringLiteral("words_list"), sansSerif);
    words_liste = controls::listBox(central, QStringLiteral("words_liste"), sansSerif);
    txt_word_search = controls::lineEdit(central, QStringLiteral("txt_word_search"), sansSerif);
    txt_word_search2 = controls::lineEdit(central, QStringLiteral("txt_word_search2"), sansSerif);

    Label9 = makeLabel(QStringLiteral("Label9"));
    Label8 = makeLabel(QStringLiteral("Label8"));
    Label1 = makeLabel(QStringLiteral("Label1"));
    Label3 = makeLabel(QStringLiteral("Label3"));
    Label2 = makeLabel(QStringLiteral("Label2"));
    Label4 = makeLabel(QStringLiteral("Label4"));
    Label5 = makeLabel(QStringLiteral("Label5"));
    Label6 = makeLabel(QStringLiteral("Label6"));
    Label4->setWordWrap(true);
    controls::labelFor(Label1, lang_list);
    controls::labelFor(Label3, lists_list);
    controls::labelFor(Label2, known_lists);
    controls::announceAs(words_list, announce_texts::kWords);
    controls::announceAs(words_liste, announce_texts::kTranslations);
    controls::announceAs(txt_word_search, announce_texts::kSearchWords);
    controls::announceAs(txt_word_search2, announce_texts::kSearchTranslations);
    for (QLabel* heading : {Label1, Label3, Label2})
        heading->setStyleSheet(QStringLiteral("font-weight: bold"));

    flash_cards = makeButton(QStringLiteral("flash_cards"), controls::kSansSerif);
    small_flash = makeButton(QStringLiteral("small_flash"), controls::kArial);
    test_me = makeButton(QStringLiteral("test_me"), controls::kArial);
    show_test_results = makeButton(QStringLiteral("show_test_results"), controls::kArial);
    print_list = makeButton(QStringLiteral("print_list"), controls::kArial);
    record_word_word = makeButton(QStringLiteral("record_word_word"), controls::kSansSerif);
    record_word_list = makeButton(QStringLiteral("record_word_list"), controls::kSansSerif);
    new_language = makeButton(QStringLiteral("new_language"), controls::kSansSerif);
    add_list = makeButton(QStringLiteral("add_list"), controls::kSansSerif);
    toggle_font = makeButton(QStringLiteral("toggle_font"), controls::kArial);
    play_paragraph = makeButton(QStringLiteral("play_paragraph"), controls::kSansSerif);
    paly_syllables = makeButton(QStringLiteral("paly_syllables"), controls::kSansSerif);
    exit_program = makeButton(QStringLiteral("exit_program"), controls::kSansSerif);
    // The two placeholders have no behaviour; they are kept out of sight.
    play_paragraph->hide();
    paly_syllables->hide();

    // Left: languages and lists. Middle: the words. Right: what to do with them.
    auto* left = new QVBoxLayout;
    left->addWidget(Label1);
    left->addWidget(lang_list, 2);
    left->addWidget(Label3);
    left->addWidget(lists_list, 4);
    left->addWidget(Label2);
    left->addWidget(known_lists, 3);

    auto* search = new QHBoxLayout;
    search->addWidget(txt_word_search, 1);
    search->addWidget(txt_word_search2, 1);
    search->addWidget(Label9);
    auto* boxes = new QHBoxLayout;
    boxes->addWidget(words_list, 1);
    boxes->addWidget(words_liste, 1);
    auto* captions = new QHBoxLayout;
    captions->addWidget(Label8);
    captions->addStretch(1);
    captions->addWidget(Label6);
    auto* middle = new QVBoxLayout;
    middle->addLayout(search);
    middle->addLayout(captions);
    middle->addLayout(boxes, 1);
    middle->addWidget(Label4);

    auto* right = new QVBoxLayout;
    for (QPushButton* button :
         {flash_cards, small_flash, test_me, show_test_results, print_list, record_word_word, record_word_list,
          new_language, add_list, toggle_font, play_paragraph, paly_syllables}) {
        button->setMinimumHeight(30);
        right->addWidget(button);
    }
    buildReview(right);
    right->addStretch(1);
    right->addWidget(exit_program);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 2);
    columns->addLayout(middle, 5);
    columns->addLayout(right, 2);
    auto* page = new QVBoxLayout(central);
    page->addLayout(columns, 1);
    page->addWidget(Label5);

    // Searching makes sense once a language is chosen.
    txt_word_search->hide();
    txt_word_search2->hide();
    Label9->hide();
    controls::tabOrder({lang_list, lists_list, known_lists, txt_word_search, txt_word_search2, words_list, words_liste,
                        flash_cards, small_flash, test_me, show_test_results, print_list, record_word_word,
                        record_word_list, new_language, add_list, toggle_font, exit_program});
    resize(1000, 640);
}

void MainWindow::buildMenus()
{
    auto addMenu = [this](const QString& name) {
        QMenu* menu = menuBar()->addMenu(main_texts::caption(name));
        menu->setObjectName(name);
        return menu;
    };
    auto addItem = [this](QMenu* menu, const QString& name) {
        QAction* action = menu->addAction(main_texts::caption(name));
        action->setObjectName(name);
        action->setParent(this);
        return action;
    };
    QMenu* file = addMenu(QStringLiteral("File"));
    import_list = addItem(file, QStringLiteral("import_list"));
    export_list = addItem(file, QStringLiteral("export_list"));
    speak_missing_words = file->addAction(sound_texts::kSpeakMissingWords);
    speak_missing_words->setObjectName(QStringLiteral("speak_missing_words"));
    speak_missing_words->setCheckable(true);
    speak_missing_words->setChecked(rememberedSpeech());
    m_session->speak_missing_words = speak_missing_words->isChecked();
    file->addSeparator();
    Exit = addItem(file, QStringLiteral("Exit"));
    QMenu* instructions = addMenu(QStringLiteral("Instructions1"));
    Instructions2 = addItem(instructions, QStringLiteral("Instructions2"));
    QMenu* help = addMenu(QStringLiteral("Help1"));
    Help2 = addItem(help, QStringLiteral("Help2"));
    Troubleshooting = addItem(help, QStringLiteral("Troubleshooting"));
    About1 = addItem(help, QStringLiteral("About1"));
    QMenu* contributors = addMenu(QStringLiteral("Contributors"));
    pair_recordings = addItem(contributors, QStringLiteral("pair_recordings"));
    QMenu* tools = addMenu(QStringLiteral("Tools"));
    Progress = addItem(tools, QStringLiteral("Progress"));
    review_settings = addItem(tools, QStringLiteral("review_settings"));
}

void MainWindow::wireHandlers()
{
    lang_list->onClick = [this] { lang_list_click(); };
    lists_list->onClick = [this] { lists_list_click(); };
    known_lists->onClick = [this] { known_lists_click(); };
    known_lists->onDoubleClick = [this] { known_lists_dblclick(); };
    words_list->onClick = [this] { words_list_click(); };
    words_liste->onClick = [this] { words_liste_click(); };
    words_list->onDoubleClick = [this] { words_list_dblclick(); };
    connect(flash_cards, &QPushButton::clicked, this, &MainWindow::flash_cards_click);
    connect(small_flash, &QPushButton::clicked, this, &MainWindow::small_flash_click);
    connect(toggle_font, &QPushButton::clicked, this, &MainWindow::toggle_font_click);
    connect(exit_program, &QPushButton::clicked, this, &MainWindow::exit_program_click);
    connect(Exit, &QAction::triggered, this, &MainWindow::Exit_click);
    connect(import_list, &QAction::triggered, this, &MainWindow::import_list_click);
    connect(export_list, &QAction::triggered, this, &MainWindow::export_list_click);
    connect(Instructions2, &QAction::triggered, this, &MainWindow::Instructions2_click);
    connect(Help2, &QAction::triggered, this, &MainWindow::Help2_click);
    connect(Troubleshooting, &QAction::triggered, this, &MainWindow::Troubleshooting_click);
    connect(About1, &QAction::triggered, this, &MainWindow::About1_click);
    connect(speak_missing_words, &QAction::triggered, this, &MainWindow::speak_missing_words_click);
    connect(record_word_word, &QPushButton::clicked, this, &MainWindow::record_word_word_click);
    connect(record_word_list, &QPushButton::clicked, this, &MainWindow::record_word_list_click);
    connect(txt_word_search, &QLineEdit::textChanged, this, &MainWindow::txt_word_search_change);
    connect(txt_word_search2, &QLineEdit::textChanged, this, &MainWindow::txt_word_search2_change);
    connect(new_language, &QPushButton::clicked, this, &MainWindow::new_language_click);
    connect(add_list, &QPushButton::clicked, this, &MainWindow::add_list_click);
    connect(pair_recordings, &QAction::triggered, this, &MainWindow::pair_recordings_click);
    connect(test_me, &QPushButton::clicked, this, &MainWindow::test_me_click);
    connect(show_test_results, &QPushButton::clicked, this, &MainWindow::show_test_results_click);
    connect(print_list, &QPushButton::clicked, this, &MainWindow::print_list_click);
    connect(review_due, &QPushButton::clicked, this, &MainWindow::review_due_click);
    connect(Progress, &QAction::triggered, this, &MainWindow::Progress_click);
    connect(review_settings, &QAction::triggered, this, &MainWindow::review_settings_click);
}

void MainWindow::guarded(const std::function<void()>& handler)
{
    runHandler(m_session->prompts, handler);
}

void MainWindow::form_load()
{
    guarded([this] {
        if (QString error; !start_up(*m_session, &error)) {
            m_session->prompts.message(error);
            return;
        }
        lang_list->clear();
        lang_list->addItems(installed_languages(*m_session));
        words_list->clear();
        words_liste->clear();
        select_row(lang_list, 0);
    });
}

void MainWindow::speak_missing_words_click()
{
    m_session->speak_missing_words = speak_missing_words->isChecked();
    rememberSpeech(m_session->speak_missing_words);
}

void MainWindow::show_sound_caption(const QString& caption)
{
    Label6->setText(caption);
}

void MainWindow::show_word_count(const QString& caption)
{
    Label8->setText(caption);
}

void MainWindow::show_main_window()
{
    show();
    update_due_label();
}

void MainWindow::toggle_font_click()
{
    const bool increase = toggle_font->text() == main_texts::kIncreaseFont;
    for (ListBox* box : {lists_list, words_list, words_liste}) {
        QFont font = box->font();
        font.setPointSize(increase ? kLargeListPoints : kSmallListPoints);
        box->setFont(font);
    }
    toggle_font->setText(increase ? main_texts::kDecreaseFont : main_texts::kIncreaseFont);
}

void MainWindow::exit_program_click()
{
    Exit_click();
}

void MainWindow::Exit_click()
{
    // Ends every running drill or wait, closes every window and the sound library, and leaves.
    if (m_leaving)
        return;
    m_leaving = true;
    m_session->stop_flag = flags::kYes;
    m_session->sound.close();
    QApplication::closeAllWindows();
    hide();
    QCoreApplication::exit(0);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    Exit_click();
}

void MainWindow::Instructions2_click()
{
    m_session->prompts.message(main_texts::kInstructions, main_texts::kInstructionsTitle);
}

void MainWindow::Help2_click()
{
    m_session->prompts.message(main_texts::kHelp, main_texts::kHelpTitle);
}

void MainWindow::Troubleshooting_click()
{
    m_session->prompts.message(main_texts::kTroubleshooting, main_texts::kTroubleshootingTitle);
}

void MainWindow::About1_click()
{
    m_session->prompts.message(main_texts::kAbout, main_texts::kAboutTitle);
}

} // namespace quorvane
