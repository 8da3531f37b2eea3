#pragma once

#include "record/packing.h"
#include "record/record_session.h"
#include "widgets/activity_window.h"

#include <QString>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quorvane {

class ListBox;

// The record-and-edit window, qvrecord: the current list split into words with and without a
// recording, the clicked entry in two edit boxes, the duration buttons that record it (one word, or
// word after word down the list) and the buttons that edit the list and pack the recordings.
//
// A recording session runs inside the handler of the duration button that starts it and yields only
// in its waits, so STOP and the close box are served meanwhile. Closing the window (its frame or
// exit_button) also sets stop_flag; the window is deleted once no session runs in it any more.
class RecordWindow : public ActivityWindow, public RecordView, public PackingView
{
    Q_OBJECT
public:
    RecordWindow(Session& session, QWidget* parent);

    // The lists, the clicked entry and the session settings (also what editing works on).
    RecordState state;
    // The language's change log.
    QString changes_file;

    ListBox* span_list_w;
    ListBox* eng_list_w;
    ListBox* span_list_wo;
    ListBox* eng_list_wo;
    QLabel* words_with_sound;
    QLabel* words_without_sound;
    QLineEdit* left_word;
    QLineEdit* right_word;
    QLabel* filenum_lbl;
    // The length and peak level of the last take, beside filenum_lbl.
    QLabel* take_level_lbl;
    QLabel* current_list;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QLabel* Label4;
    QLabel* Label5;
    QLabel* Label6;
    QLabel* countdown;
    QPushButton* point8_single;
    QPushButton* point8_many;
    QPushButton* one_single;
    QPushButton* one_many;
    QPushButton* one2_single;
    QPushButton* one2_many;
    QPushButton* one4_single;
    QPushButton* one4_many;
    QPushButton* one8_single;
    QPushButton* one8_many;
    QPushButton* two_sec_single;
    QPushButton* two_sec_many;
    QPushButton* two4_single;
    QPushButton* two4_many;
    QPushButton* two7_single;
    QPushButton* two7_many;
    QPushButton* three_sec_single;
    QPushButton* three_sec_many;
    QPushButton* three5_single;
    QPushButton* three5_many;
    QPushButton* four_single;
    QPushButton* four_many;
    QPushButton* four5_single;
    QPushButton* four5_many;
    QPushButton* five_single;
    QPushButton* five_many;
    QPushButton* unlimited;
    QPushButton* stop_auto_record;
    QPushButton* record_speed;
    QCheckBox* Check1;
    QPushButton* add_word;
    QPushButton* save_text;
    QPushButton* delete_word;
    QPushButton* refresh_lists;
    QPushButton* exit_button;
    QPushButton* Command1;
    QPushButton* instructions_text;
    QPushButton* instructions_record;
    QPushButton* license;
    QPushButton* zip;

    // RecordView
    bool unloaded() const override { return ActivityWindow::unloaded(); }
    int selectedRow(const QString& kind) const override;
    bool selectRow(const QString& kind, int row) override;
    void showFileNumber(const QString& caption) override;
    void showCountdown(const QString& text) override;
    void colourSession(SessionColour colour) override;
    void showTake(const QString& text) override;
    // PackingView
    void show_packing_progress(const QString& text) override;

public slots:
    // Opening: the list's name, list_file and changes_file, the window shown, then its lists.
    void form_load();
    // Fills the lists from list_file, or with the single word the main window chose.
    void create_arrays();
    void span_list_w_click();
    void span_list_wo_click();
    void eng_list_w_click();
    void eng_list_wo_click();
    void unlimited_click();
    // Runs the session on the stored settings (the duration buttons set them first).
    void misc_rec();
    // Editing words, the list editor and packing.
    void add_word_click();
    void save_text_click();
    void delete_word_click();
    void Command1_click();
    void zip_click();
    void stop_auto_record_click();
    void record_speed_click();
    void refresh_lists_click();
    void exit_button_click();
    void instructions_text_click();
    void instructions_record_click();
    void license_click();

protected:
    void unloading() override;

private:
    void buildControls();
    void buildLayout();
    void wireHandlers();
    QPushButton* makeButton(const QString& name, const QString& caption);
    QLabel* makeLabel(const QString& name, const QString& caption, int points = 8, bool bold = false);
    ListBox* spanList(const QString& kind) const;
    ListBox* engList(const QString& kind) const;
    // The click on a word of the lists of kind: partner row, edit boxes, file number, its sound.
    void wordClicked(const QString& kind);
    void record(float seconds, bool single);
};

} // namespace quorvane
