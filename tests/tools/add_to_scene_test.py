"""Tests of tools/add-to-scene: add_to_scene_test.py PATH-OF-THE-TOOL"""
import os
import subprocess
import sys
import tempfile
import unittest
import zipfile

TOOL = os.path.abspath(sys.argv.pop(1))

SCENE = b"""<?xml version="1.0" encoding="UTF-8"?>
<scene name="S" background="ffffffff">
  <!-- </scene> does not end the scene here, nor does > in what follows -->
  <assembly name="A"  visibility='1' note="a > b">
\t<geometry name="g" lineWidth = '1' points="p"/>
  </assembly>
  <assembly name="Z\xc3\xbc"><assembly name="A"/></assembly>
</scene>
"""


class AddToScene(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.scene, self.out = (os.path.join(folder.name, name) for name in ("scene.zip", "out.zip"))
        self.folder = folder.name
        with zipfile.ZipFile(self.scene, "w") as archive:
            archive.writestr("p", bytes(range(256)) * 40, zipfile.ZIP_DEFLATED)
            archive.writestr(zipfile.ZipInfo("scene.xml", (2001, 2, 3, 4, 5, 6)), SCENE)
            archive.writestr("stored", b"as it is")

    def add(self, *additions):
        paths = []
        for number, text in enumerate(additions):
            paths.append(os.path.join(self.folder, f"{number}.xml"))
            with open(paths[-1], "wb") as file:
                file.write(text)
        return subprocess.run([TOOL, self.scene, self.out, *paths], capture_output=True, text=True, check=False)

    def added(self, *additions):
        run = self.add(*additions)
        self.assertEqual(run.returncode, 0, run.stderr)
        with zipfile.ZipFile(self.out) as archive:
            return archive.read("scene.xml")

    def assert_fault(self, run, message):
        self.assertEqual(run.returncode, 1)
        self.assertIn(message, run.stderr)
        self.assertNotIn("Traceback", run.stderr)

    def test_other_entries_stay(self):
        self.added(b'<scene><clip version="1"/></scene>')
        with zipfile.ZipFile(self.scene) as before, zipfile.ZipFile(self.out) as after:
            self.assertEqual(before.namelist(), after.namelist())
            for old, new in zip(before.infolist(), after.infolist()):
                self.assertEqual((old.date_time, old.compress_type), (new.date_time, new.compress_type))
                if old.filename != "scene.xml":
                    self.assertEqual(before.read(old), after.read(new))

    def test_nothing_new_changes_nothing(self):
        self.assertEqual(self.added(b'<scene name="S"><assembly name="A"><geometry name="g"/></assembly></scene>'), SCENE)

    def test_elements_go_to_the_end_of_the_named_place(self):
        text = self.added(b'<scene><clip/><assembly name="A"><legend a="1"><font/></legend></assembly></scene>')
        expected = SCENE.replace(b"points=\"p\"/>\n", b"points=\"p\"/>\n    <legend a=\"1\"><font/></legend>\n")
        self.assertEqual(text, expected.replace(b"</assembly>\n</scene>\n", b"</assembly>\n  <clip/>\n</scene>\n"))

    def test_names_count_within_their_place(self):
        text = self.added('<scene><assembly name="Zü"><assembly name="A"><legend/></assembly></assembly></scene>'.encode())
        self.assertEqual(text, SCENE.replace(b'<assembly name="A"/>', b'<assembly name="A">\n      <legend/>\n    </assembly>'))

    def test_attributes_are_set_in_place_or_added(self):
        text = self.added(
            b'<scene background="00000000"><assembly name="A"><geometry name="g" lineWidth="2" contour="&lt;"/></assembly></scene>'
        )
        expected = SCENE.replace(b"ffffffff", b"00000000").replace(b"lineWidth = '1'", b'lineWidth="2"')
        self.assertEqual(text, expected.replace(b'points="p"/>', b'points="p" contour="&lt;"/>'))

    def test_later_additions_see_earlier_ones(self):
        text = self.added(
            b'<scene><assembly name="new"/></scene>', b'<scene><assembly name="new"><legend/></assembly></scene>'
        )
        self.assertIn(b'<assembly name="new">\n    <legend/>\n  </assembly>', text)

    def test_faults_are_named_and_leave_nothing(self):
        self.assert_fault(self.add(b"<scene><a></scene>"), "0.xml: mismatched tag")
        self.assert_fault(self.add(b"<assembly/>"), 'its root is "assembly"')
        self.assert_fault(self.add('<?xml version="1.0" encoding="UTF-16"?><scene/>'.encode("utf-16")), "UTF-16")
        self.assertFalse(os.path.exists(self.out))

    def test_existing_file_stays(self):
        with open(self.out, "w", encoding="utf-8") as file:
            file.write("mine")
        self.assert_fault(self.add(b"<scene><clip/></scene>"), "exists")
        with open(self.out, encoding="utf-8") as file:
            self.assertEqual(file.read(), "mine")

    def test_damaged_archive(self):
        with zipfile.ZipFile(self.scene) as archive:
            place = archive.getinfo("p").header_offset + 60
        with open(self.scene, "r+b") as file:
            file.seek(place)
            file.write(b"\xff\xff\xff\xff")
        run = self.add(b"<scene><clip/></scene>")
        self.assertEqual(run.returncode, 1)
        self.assertNotIn("Traceback", run.stderr)
        self.assertFalse(os.path.exists(self.out))


if __name__ == "__main__":
    unittest.main()
