"""The translations are whole: every text in the sources has one, it is finished, and it has the same placeholders.

Usage: translations_test.py ROOT
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET

ROOT = sys.argv[1]
LANGUAGES = ["de", "fr"]
# Their texts are asked for by ids, so that English is a translation, too.
ID_BASED = ["p_device_haitor"]
FOLDERS = {"app_workplace": "applications/AppWorkplace/translations",
           "lib_plugins_management": "libraries/lib_plugins_management/translations",
           "p_device_haitor": "plugins/p_device_haitor/translations",
           "p_driver_serial": "plugins/p_driver_serial/translations"}
# What a person meets in more places than one: these texts have one translation, and these words are no translation.
ONE_WORD = {"de": ["good", "not good", "lock", "unlock", "time"], "fr": ["time"]}
OTHER_WORDS = {"de": ["freigeben", "freigegeben"], "fr": ["blocage", "débloqu"]}
LIMIT_S = 60


def messages(path):
    """(context or id, text, comment): the message."""
    return {(message.get("id", context.find("name").text), message.find("source").text, message.findtext("comment")): message
            for context in ET.parse(path).getroot().findall("context") for message in context.findall("message")}


def placeholders(text):
    return sorted(set(re.findall(r"%L?\d|%n", text)))


class TranslationsTest(unittest.TestCase):
    @staticmethod
    def each():
        for name, folder in FOLDERS.items():
            for language in LANGUAGES + (["en"] if name in ID_BASED else []):
                file = f"{name}_{language}.ts"
                yield file, os.path.join(ROOT, folder, file)

    def test_every_text_of_the_sources_and_no_other(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([os.path.join(ROOT, "scripts/update-translations"), folder], check=True, timeout=LIMIT_S,
                           capture_output=True)
            for file, path in self.each():
                fresh = set(messages(os.path.join(folder, file)))
                self.assertGreater(len(fresh), 5)
                self.assertEqual(fresh - set(messages(path)), set(),
                                 f"not in {file}: call scripts/update-translations, then translate")
                self.assertEqual(set(messages(path)) - fresh, set(), f"in {file}, and no longer in the sources")

    def test_every_text_is_translated(self):
        for _, path in self.each():
            for key, message in messages(path).items():
                translation = message.find("translation")
                self.assertNotIn("type", translation.attrib, f"{key} is not finished")
                self.assertTrue(translation.text, f"{key} is empty")

    def test_placeholders_are_the_same(self):
        for _, path in self.each():
            for (context, text, _), message in messages(path).items():
                self.assertEqual(placeholders(message.findtext("translation")), placeholders(text), (context, text))

    def test_line_ends_and_blanks_around_are_the_same(self):
        for _, path in self.each():
            for (context, text, _), message in messages(path).items():
                translation = message.findtext("translation")
                for trim in (str.lstrip, str.rstrip):
                    self.assertEqual(len(text) - len(trim(text)), len(translation) - len(trim(translation)),
                                     (context, text))

    def test_options_and_names_are_left_alone(self):
        """An option, a path or a command of the program is the same in every language."""
        names = re.compile(r"--[a-z][a-z-]+|/(?:dev|etc)/[\w/-]+|app_workplace [a-z]+|\$USER|\bsudo \w+")
        for _, path in self.each():
            for (context, text, _), message in messages(path).items():
                self.assertEqual(sorted(names.findall(message.findtext("translation"))), sorted(names.findall(text)),
                                 (context, text))

    def test_one_thing_has_one_word(self):
        for language in LANGUAGES:
            path = os.path.join(ROOT, FOLDERS["app_workplace"], f"app_workplace_{language}.ts")
            found = {text: set() for text in ONE_WORD[language]}
            for (context, text, _), message in messages(path).items():
                translation = message.findtext("translation").lower()
                if text.lower() in found:
                    found[text.lower()].add(translation)
                for word in OTHER_WORDS[language]:
                    self.assertNotIn(word, translation, (context, text))
            for text, translations in found.items():
                self.assertEqual(len(translations), 1, f"{text}: {translations}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
