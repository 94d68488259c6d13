"""What `cmake --install` makes of the build, after it was moved: its files, its host, projects that use its library.

The two parts are installed and moved each for itself, as each is a package of its own.
"""

import os
import subprocess
import sys

if "INSTALL_LIBDIR" not in os.environ:
    sys.exit("CTest tells this test what to install and where its helpers are: ctest --preset release -R install")

from visex import *  # noqa: E402

LIBDIR = os.environ["INSTALL_LIBDIR"]
VERSION = os.environ["INSTALLED_VERSION"]
CONSUMERS = ROOT / "tests/consumers"

FILES = {
    "library": """
        include/Velbase/common/common_cast.h
        include/Velbase/common/common_char.h
        include/Velbase/common/common_checked_types.h
        include/Velbase/common/common_smart_ptr.h
        include/Velbase/common/common_string.h
        LIBDIR/cmake/Velbase/VelbaseConfig-release.cmake
        LIBDIR/cmake/Velbase/VelbaseConfig.cmake
        LIBDIR/cmake/Velbase/VelbaseConfigVersion.cmake
        LIBDIR/libvelbase.a
        LIBDIR/libvelbase_unicode.a
        LIBDIR/pkgconfig/velbase-unicode.pc
        LIBDIR/pkgconfig/velbase.pc
        share/velbase/velbase_gdb.py
    """,
    "host": """
        bin/visex-host
        LIBDIR/visex-host/DemoInstaller.app/Contents/Info.plist
        LIBDIR/visex-host/DemoInstaller.app/Contents/PkgInfo
        LIBDIR/visex-host/DemoInstaller.app/Contents/PlugIns/LanguageSelector.bundle/Contents/Info.plist
        LIBDIR/visex-host/DemoInstaller.app/Contents/PlugIns/LanguageSelector.bundle/Contents/Linux/LanguageSelector
        LIBDIR/visex-host/DemoInstaller.app/Contents/PlugIns/LanguageSelector.bundle/Contents/PkgInfo
        LIBDIR/visex-host/DemoInstaller.app/Contents/Resources/DemoInstaller.rsrc
        LIBDIR/visex-host/DemoInstaller.app/Contents/Resources/LanguageSelector.nib/classes.nib
        LIBDIR/visex-host/DemoInstaller.app/Contents/Resources/LanguageSelector.nib/info.nib
        LIBDIR/visex-host/DemoInstaller.app/Contents/Resources/LanguageSelector.nib/objects.xib
        LIBDIR/visex-host/Frameworks/Security.framework/Resources/Info.plist
        LIBDIR/visex-host/Frameworks/Security.framework/Security
        LIBDIR/visex-host/libtoolbox_base.so
        LIBDIR/visex-host/libtoolbox_core.so
        LIBDIR/visex-host/libtoolbox_screen.so
        LIBDIR/visex-host/visex-host
        share/applications/visex-host.desktop
        share/doc/visex-host/answer.schema.json
        share/bash-completion/completions/visex-host
        share/fish/vendor_completions.d/visex-host.fish
        share/icons/hicolor/scalable/apps/visex-host.svg
        share/man/man1/visex-host.1.gz
        share/zsh/site-functions/_visex-host
    """,
}

folder = None  # of this whole run


def first_prefix(component):
    return folder / f"installed-{component}"


def prefix(component):
    """Where the component is now."""
    return folder / f"moved-{component}"


def setUpModule():
    global folder
    folder = pathlib.Path(tempfile.mkdtemp(prefix="install-test-"))
    unittest.addModuleCleanup(shutil.rmtree, folder)
    for component in FILES:
        subprocess.run(["cmake", "--install", BUILD, "--component", component, "--prefix", first_prefix(component)],
                       check=True, stdout=subprocess.DEVNULL)
        first_prefix(component).rename(prefix(component))


def files_in(place):
    return [file for file in place.rglob("*") if file.is_symlink() or not file.is_dir()]


class Files(unittest.TestCase):
    def test_nothing_is_missing_and_nothing_too_much(self):
        for component, listed in FILES.items():
            with self.subTest(component):
                found = {str(file.relative_to(prefix(component))) for file in files_in(prefix(component))}
                self.assertEqual(found, set(listed.replace("LIBDIR", LIBDIR).split()))

    def test_nothing_names_where_it_was_built_or_first_installed(self):
        for component in FILES:
            for file in files_in(prefix(component)):
                with self.subTest(file.name):
                    contents = os.readlink(file).encode() if file.is_symlink() else file.read_bytes()
                    for place in (ROOT, BUILD, first_prefix(component)):
                        self.assertNotIn(str(place).encode(), contents)


class InstalledHost(HostTest):
    def setUp(self):
        super().setUp()
        self.prefix = prefix("host")
        self.host = self.prefix / "bin/visex-host"

    def assert_chooses_japanese(self, *arguments, **options):
        outcome = unattended("--json", *arguments, answers=["japanese"], **{"host": self.host, **options})
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.status, CHOSE)
        self.assertEqual(outcome.json()["chosen"], {"code": JAPANESE, "name": "Japanese"})

    def test_it_runs_in_any_folder(self):
        for place in ("/", self.folder, self.prefix, self.host.parent):
            with self.subTest(place):
                self.assert_chooses_japanese(cwd=place)

    def test_it_runs_from_the_search_path_and_in_a_folder_with_a_space(self):
        self.assert_chooses_japanese(host="visex-host", variables={"PATH": str(self.host.parent)})
        copy = self.folder / "another place"
        shutil.copytree(self.prefix, copy, symlinks=True)
        self.assert_chooses_japanese(host=copy / "bin/visex-host")

    def test_each_library_finds_the_others(self):
        for library in (self.prefix / LIBDIR / "visex-host").glob("*.so"):
            with self.subTest(library.name):
                needed = subprocess.run(["ldd", library], check=True, capture_output=True, text=True).stdout
                self.assertIn("libc.so.6 => /", needed)
                self.assertNotIn("not found", needed)

    def test_it_finds_its_library_for_windows(self):
        picture = self.folder / "dialog.png"
        self.assert_chooses_japanese("--picture", picture)
        self.assertEqual(picture.read_bytes()[:4], b"\x89PNG")

    @unittest.skipUnless(os.geteuid() == 0, "only the superuser is given the right")
    def test_it_finds_its_frameworks(self):
        self.assert_chooses_japanese("--require-admin")

    def test_its_desktop_entry_names_what_is_there_and_its_version_is_the_projects(self):
        entry = (self.prefix / "share/applications/visex-host.desktop").read_text()
        self.assertIn(f"\nExec={self.host.name}\n", entry)
        icon, = (self.prefix / "share/icons").rglob("*.svg")
        self.assertIn(f"\nIcon={icon.stem}\n", entry)
        self.assertEqual(run("--version", host=self.host).output.split()[-1], VERSION)


class Projects(HostTest):
    """Other projects, which find the library, with and without its conversions."""

    def setUp(self):
        super().setUp()
        self.libdir = prefix("library") / LIBDIR

    def call(self, *command):
        return subprocess.run(command, env=environment(PKG_CONFIG_PATH=str(self.libdir / "pkgconfig")),
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

    def output_of(self, *command):
        result = self.call(*command)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout

    def configure(self, *options):
        return self.call("cmake", "-S", CONSUMERS, "-B", self.folder, "-G", "Ninja",
                         f"-DCMAKE_PREFIX_PATH={prefix('library')}", *options)

    def assert_programs_work(self):
        self.assertEqual(self.output_of(self.folder / "text"), "twice 21 is 42\n")
        self.assertEqual(self.output_of(self.folder / "utf16"), "U+00E9\n")

    def test_cmake_finds_it(self):
        configured = self.configure(f"-DVELBASE_VERSION={VERSION}")
        self.assertEqual(configured.returncode, 0, configured.stdout)
        self.output_of("cmake", "--build", self.folder)
        self.assert_programs_work()

        following = str(int(VERSION.split(".")[0]) + 1)
        refused = self.configure(f"-DVELBASE_VERSION={following}")
        self.assertNotEqual(refused.returncode, 0)
        self.assertIn("compatible with requested version", refused.stdout)

    def test_a_subdirectory_gives_what_is_linked_and_installs_nothing(self):
        self.configure(f"-DVELBASE_SOURCES={ROOT}", "-DCMAKE_UNITY_BUILD=ON")
        for target, unwanted in (("text", "toolbox/|unicode.dir"), ("all", "LanguageSelector|UI/|util/|host/|tests/")):
            steps = self.output_of("cmake", "--build", self.folder, "--target", target, "--", "-n")
            self.assertIn("libvelbase.a", steps)
            self.assertNotRegex(steps, unwanted)
        self.output_of("cmake", "--build", self.folder, "--target", "text")
        self.output_of("cmake", "--install", self.folder, "--prefix", self.folder / "installed")
        self.assertEqual(files_in(self.folder / "installed"), [self.folder / "installed/bin/text"])

    def test_pkg_config_finds_it_alone_or_with_its_conversions(self):
        self.output_of(CONSUMERS / "build-with-pkg-config", self.folder)
        self.assert_programs_work()
        for name in ("velbase", "velbase-unicode"):
            self.assertEqual(self.output_of("pkg-config", "--modversion", name), VERSION + "\n")
        self.assertNotIn("unicode", self.output_of("pkg-config", "--libs", "velbase"))
