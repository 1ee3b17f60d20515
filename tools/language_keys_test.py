#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The check of the language files finds what it is for: each test plants one fault in a small house
whose texts are in step."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
import language_keys

SOURCE = """
// texts.getMultilangMessageDefault("In a comment", "FIRST/MSG/comment/text");
void show(const CMultiLangEx& texts, const std::string& file) {
  box({"FIRST/MSG/save/text",
       texts.getMultilangMessageDefault("Save error", "FIRST/MSG/save/title"),
       texts.getMultilangMessageDefault("File '{0}' is \\"read only\\"."
                                        "{crlf}Choose {1}.",
                                        "FIRST/MSG/save/text", file, other)});
  const auto text = [&](const char* english, const char* key) {
    return texts.getMultilangMessageDefault(english, key);
  };
  button.setText(text("Close", "FIRST/MSG/close"));
  desktop::TranslateControl(page, texts, "FIRST/CONTROLS");
}
constexpr KeyedText title{"FIRST/MSG/rename/title", "Rename"};
"""
WINDOW_SOURCE = """
constexpr char controlsKey[] = "MAIN/CONTROLS";
void KelmarForm::start() {
  TranslateControl(*this, texts_, controlsKey);
  texts_.getMultilangMessageDefault("About", "GENERIC/about/title");
}
"""
# {file: {key: (English, French)}}
TEXTS = {
    language_keys.PAGES_FILE: {
        "FIRST/MSG/save/title": ("Save error", "Erreur d'enregistrement"),
        "FIRST/MSG/save/text": ("File '{0}' is \"read only\".{crlf}Choose {1}.",
                                "Le fichier « {0} » est protégé.{crlf}Choisissez {1}."),
        "FIRST/MSG/close": ("Close", "Fermer"),
        "FIRST/MSG/rename/title": ("Rename", "Renommer"),
        "FIRST/CONTROLS/LabelName/caption": ("Name", "Nom"),
    },
    language_keys.WINDOW_FILE: {
        "GENERIC/about/title": ("About", "À propos"),
        "MAIN/CONTROLS/mnuFile/caption": ("&File", "&Fichier"),
        "MAIN/CONTROLS/mnuFileQuit/caption": ("&Quit", "&Quitter"),
        "MAIN/CONTROLS/mnuTools/caption": ("&Tools", "&Outils"),
    },
}


class TheCheck(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.texts = {name: dict(texts) for name, texts in TEXTS.items()}
        self.write("src/first/page.cpp", SOURCE)
        self.write("src/frame/kelmar_form.cpp", WINDOW_SOURCE)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def faults(self):
        for name, texts in self.texts.items():
            file = language_keys.LanguageFile(self.root / "site" / "lang" / name)
            file.texts = {key: {language: text for language, text in zip(("en", "fr"), pair)
                                if text is not None} for key, pair in texts.items()}
            file.parameters = language_keys.PARAMETERS[name]
            file.write()
        return language_keys.check(self.root)

    def assert_found(self, *words):
        faults = self.faults()
        self.assertEqual(len(faults), 1, faults)
        for word in words:
            self.assertIn(word, faults[0])

    def plant(self, key, english, french, name=language_keys.PAGES_FILE):
        self.texts[name][key] = (english, french)

    def test_finds_nothing_in_texts_that_are_in_step(self):
        self.assertEqual(self.faults(), [])

    def test_finds_a_key_without_an_english_text(self):
        self.plant("FIRST/MSG/close", None, "Fermer")
        self.assert_found("FIRST/MSG/close: no English text", "src/first/page.cpp:12")

    def test_lets_the_files_word_a_key_whose_default_is_a_makeshift(self):
        language_keys.WORDED_BY_THE_FILES.add("FIRST/MSG/close")
        self.addCleanup(language_keys.WORDED_BY_THE_FILES.discard, "FIRST/MSG/close")
        self.plant("FIRST/MSG/close", "Close {0} now", "Fermer {0}")
        self.assertEqual(self.faults(), [])
        language_keys.update(self.root, None)
        file = language_keys.LanguageFile(self.root / "site" / "lang" / language_keys.PAGES_FILE)
        self.assertEqual(file.texts["FIRST/MSG/close"], {"en": "Close {0} now", "fr": "Fermer {0}"})
        self.plant("FIRST/MSG/close", "Close {0} now", "Fermer")
        self.assert_found("FIRST/MSG/close: French has other placeholders")

    def test_finds_a_key_without_a_french_text(self):
        self.plant("FIRST/MSG/rename/title", "Rename", None)
        self.assert_found("FIRST/MSG/rename/title: no French text")

    def test_finds_an_english_text_that_differs_from_the_code(self):
        self.plant("FIRST/MSG/save/title", "Save  error", "Erreur")
        self.assert_found("FIRST/MSG/save/title: the English text is not that of the code")

    def test_finds_a_key_that_the_code_does_not_use(self):
        self.plant("FIRST/MSG/comment/text", "In a comment", "Dans un commentaire")
        self.assert_found("FIRST/MSG/comment/text: the code does not use it")

    def test_finds_a_control_of_a_page_that_is_not_translated(self):
        self.plant("SECOND/CONTROLS/LabelName/caption", "Name", "Nom")
        self.assert_found("SECOND/CONTROLS/LabelName/caption: the code does not use it")

    def test_finds_a_control_without_a_french_text(self):
        self.plant("FIRST/CONTROLS/LabelName/caption", "Name", None)
        self.assert_found('FIRST/CONTROLS/LabelName/caption: a control without a text in "fr"')

    def test_finds_placeholders_that_differ(self):
        self.plant("FIRST/MSG/save/text", TEXTS[language_keys.PAGES_FILE]["FIRST/MSG/save/text"][0],
                   "Le fichier « {0} » est protégé.")
        self.assert_found("FIRST/MSG/save/text: French has other placeholders")

    def test_finds_placeholders_of_a_control_that_differ(self):
        self.plant("FIRST/CONTROLS/LabelName/caption", "Name {0}", "Nom")
        self.assert_found("LabelName/caption: French has other placeholders")

    def test_finds_french_that_is_still_english(self):
        self.plant("FIRST/MSG/close", "Close", "Close")
        self.assert_found('FIRST/MSG/close: French as English: "Close"')

    def test_passes_french_that_is_meant_to_be_as_english(self):
        self.plant("FIRST/MSG/close", "Close", "Close")
        self.write(language_keys.SAME_IN_FRENCH, "# Names.\nClose\n")
        self.assertEqual(self.faults(), [])

    def test_finds_an_exception_that_is_none(self):
        self.write(language_keys.SAME_IN_FRENCH, "# Names.\nOpen\n")
        self.assert_found(language_keys.SAME_IN_FRENCH + ':2: no text "Open"')

    def test_finds_an_empty_text(self):
        self.plant("FIRST/MSG/close", "Close", " ")
        self.assert_found('FIRST/MSG/close: an empty text in "fr"')

    def test_finds_a_letter_that_two_entries_of_a_menu_share(self):
        self.plant("MAIN/CONTROLS/mnuTools/caption", "&Tools", "Outil&f", language_keys.WINDOW_FILE)
        self.assert_found('mnuTools/caption: the letter "f"', "(fr)")

    def test_a_letter_of_the_bar_may_come_again_in_a_menu(self):
        self.plant("MAIN/CONTROLS/mnuFileQuit/caption", "&Quit", "&Finir", language_keys.WINDOW_FILE)
        self.assertEqual(self.faults(), [])

    def test_a_key_with_two_defaults_stands_in_french_at_most(self):
        self.write("src/first/other.cpp", 'auto text = f("Shut", "FIRST/MSG/close");\n')
        self.assert_found("FIRST/MSG/close: has two defaults in the code", "other.cpp:1")
        self.plant("FIRST/MSG/close", None, "Fermer")
        self.assertEqual(self.faults(), [])
        del self.texts[language_keys.PAGES_FILE]["FIRST/MSG/close"]
        self.assertEqual(self.faults(), [])
        self.plant("FIRST/MSG/close", None, "Fermer {0}")
        self.assertEqual(len(self.faults()), 2)  # fits neither default
        self.write("src/first/other.cpp", 'auto text = f("Shut {0}", "FIRST/MSG/close");\n')
        self.assertEqual(self.faults(), [])  # fits one of them

    def test_finds_a_key_of_the_other_file(self):
        self.plant("GENERIC/about/title", "About", "À propos")
        self.assert_found(language_keys.PAGES_FILE, "GENERIC/about/title: the code does not use it")

    def test_finds_a_key_that_is_only_named(self):
        self.write("src/first/other.cpp", 'person.message({"FIRST/MSG/delete/text", title, text});\n')
        self.assert_found("src/first/other.cpp:1: FIRST/MSG/delete/text has no default")

    def test_passes_a_box_that_shows_the_text_of_a_failure(self):
        self.write("src/first/other.cpp", 'box({"FIRST/MSG/rename/text", title, failure.text});\n')
        self.assertEqual(self.faults(), [])

    def test_finds_a_key_that_is_made_at_run_time(self):
        self.write("src/first/other.cpp", 'const std::string key = "FIRST/MSG/" + routine;\n')
        self.assert_found("src/first/other.cpp:1: a key that begins with", "run time")

    def test_finds_a_default_that_is_no_literal(self):
        self.write("src/first/other.cpp",
                   'texts.getMultilangMessageDefault(name + "!", "FIRST/MSG/close");\n')
        self.assert_found("src/first/other.cpp:1: the default of FIRST/MSG/close")

    def test_reads_a_default_that_the_code_knows_by_name(self):
        self.write("src/first/texts.h", 'inline constexpr char closing[] = "Clo" "se";\n')
        self.write("src/first/other.cpp",
                   'texts.getMultilangMessageDefault(closing, "FIRST/MSG/close");\n')
        self.assertEqual(self.faults(), [])

    def test_reads_both_texts_of_a_condition(self):
        self.write("src/first/other.cpp",
                   'texts.getMultilangMessageDefault(many ? "Shut all" : "Shut", "FIRST/MSG/shut");\n')
        self.plant("FIRST/MSG/shut", None, "Fermer tout")
        self.assertEqual(self.faults(), [])

    def test_reads_the_text_of_a_helper_that_takes_the_key(self):
        self.write("src/first/other.cpp",
                   'KeyedText confirm(const char* key) { return {key, "User confirm"}; }\n'
                   'const Row rows[] = {{1, confirm("FIRST/MSG/cut/title")}};\n')
        self.plant("FIRST/MSG/cut/title", "User confirms", "Confirmation")
        self.assert_found("FIRST/MSG/cut/title: the English text is not that of the code")
        self.plant("FIRST/MSG/cut/title", "User confirm", "Confirmation")
        self.assertEqual(self.faults(), [])

    def test_reads_the_rows_of_a_menu_array(self):
        self.write("src/first/rows.cpp", 'const Row rows[] = {{"ppBits", 12, "12 bits", {8}}};\n')
        self.write("src/first/menu.cpp",
                   'texts.getMultilangMessageDefault(row.text, "FIRST/CONTROLS/" + '
                   'std::string(array) + "/item" + index + "/caption");\n')
        self.plant("FIRST/CONTROLS/ppBits/item12/caption", "12 bit", "12 éléments")
        self.assert_found("ppBits/item12/caption: the English text is not that of the code")
        self.plant("FIRST/CONTROLS/ppBits/item12/caption", "12 bits", "12 éléments")
        self.assertEqual(self.faults(), [])

    def test_reads_the_captions_of_the_tabs(self):
        self.write("src/frame/rules/page_table.cpp",
                   '{2, "datas", "Data", "Edit datas", "UceDatas1",\n'
                   ' "MAIN/CONTROLS/TabStripPrincipal/datas/caption", PageKind::Counted, x},\n')
        self.plant("MAIN/CONTROLS/TabStripPrincipal/datas/caption", "Datas", "Données")
        self.assert_found("datas/caption: the English text is not that of the code")
        self.plant("MAIN/CONTROLS/TabStripPrincipal/datas/caption", "Data", "Données")
        self.assertEqual(self.faults(), [])

    def test_finds_two_texts_of_one_language(self):
        self.faults()
        file = self.root / "site" / "lang" / language_keys.PAGES_FILE
        line = '<close xml:lang="fr">Fermer</close>'
        file.write_text(file.read_text("utf-8").replace(line, line + line), encoding="utf-8")
        self.assertEqual(language_keys.check(self.root),
                         [f'site/lang/{language_keys.PAGES_FILE}: FIRST/MSG/close: two texts in "fr"'])

    def test_finds_that_the_list_of_languages_is_missing(self):
        self.faults()
        file = self.root / "site" / "lang" / language_keys.WINDOW_FILE
        file.write_text(file.read_text("utf-8").replace("<key>fr</key>", ""), encoding="utf-8")
        faults = language_keys.check(self.root)
        self.assertEqual(len(faults), 1, faults)
        self.assertIn("availableLanguages", faults[0])

    def test_finds_that_a_file_is_missing(self):
        self.faults()
        (self.root / "site" / "lang" / language_keys.WINDOW_FILE).unlink()
        self.assertEqual(language_keys.check(self.root),
                         [f"site/lang/{language_keys.WINDOW_FILE}: there is no such file"])

    def test_writes_new_keys_drops_old_ones_and_keeps_french(self):
        self.plant("FIRST/MSG/old/text", "Old", "Ancien")
        self.plant("FIRST/MSG/close", "Shut", "Fermer")
        del self.texts[language_keys.PAGES_FILE]["FIRST/MSG/save/title"]
        self.faults()
        controls = {language_keys.PAGES_FILE: {"FIRST/CONTROLS/LabelName/caption": "Name\nof it"},
                    language_keys.WINDOW_FILE: {}}
        missing = language_keys.update(self.root, controls)
        self.assertIn((language_keys.PAGES_FILE, "FIRST/MSG/save/title", "Save error"), missing)
        file = language_keys.LanguageFile(self.root / "site" / "lang" / language_keys.PAGES_FILE)
        self.assertEqual(file.texts["FIRST/MSG/save/title"], {"en": "Save error"})
        self.assertEqual(file.texts["FIRST/MSG/close"], {"en": "Close", "fr": "Fermer"})
        self.assertEqual(file.texts["FIRST/CONTROLS/LabelName/caption"],
                         {"en": "Name\nof it", "fr": "Nom"})
        self.assertNotIn("FIRST/MSG/old/text", file.texts)

    def test_keeps_the_controls_without_a_list_of_them(self):
        self.faults()
        language_keys.update(self.root, None)
        self.assertEqual(language_keys.check(self.root), [])


if __name__ == "__main__":
    unittest.main()
