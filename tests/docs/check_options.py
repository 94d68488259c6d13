"""Whether README, the man page and the completions know the options that --help tells, with their values and defaults.

usage: check_options.py HOST
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPLETIONS = ROOT / "host/completions"


def call(host, *arguments):
    """What the host prints, or complains of."""
    result = subprocess.run([host, *arguments], capture_output=True, text=True)
    return result.stdout + result.stderr


class Host:
    """What the program itself says: --help, and what it lists when a value is wrong."""

    def __init__(self, path):
        text = call(path, "--help")
        rows = re.findall(r"^  (?:-h,)?(--[a-z-]+)(?: ([A-Z]+))? +(.*(?:\n {20,}.*)*)", text, re.MULTILINE)
        self.values = {option: value for option, value, _ in rows}
        self.defaults = {option: re.search(r"\[(.*)\]", meaning)[1] for option, _, meaning in rows if "[" in meaning}
        languages = re.findall(r"(\w+) \((\d+)\)", call(path, "--current", "nothing"))
        self.codes = {name.lower(): code for name, code in languages}
        self.displays = re.findall(r"\w+", re.search(r"takes (.*), not", call(path, "--display", "nothing"))[1])
        self.displays.remove("or")
        # What is offered after an option; button:1 and button:2 stand for all buttons.
        self.offers = {"--message": {self.defaults["--message"].split()[-1]}, "--display": set(self.displays),
                       "--current": set(self.codes), "--answer": {"ok", "cancel", "button:1", "button:2", *self.codes}}


def bash(*words):
    """What bash offers after these words."""
    quoted = " ".join(f"'{word}'" for word in ("visex-host", *words))
    script = f"""source {COMPLETIONS}/visex-host.bash
        COMP_WORDS=({quoted}) COMP_CWORD={len(words)}
        compopt() {{ :; }}
        _visex_host
        printf '%s\\n' "${{COMPREPLY[@]}}" """
    return set(subprocess.run(["bash", "-c", script], check=True, capture_output=True, text=True).stdout.split())


def zsh():
    """The options, and what is offered after each."""
    text = (COMPLETIONS / "_visex-host").read_text()
    text = text.replace("$languages", re.search(r"languages='(.*)'", text)[1]).replace("\\:", ":")
    options = set(re.findall(r"(--[a-z-]+)[=\[}']", text))
    return options, {option: set(words.split()) for option, words in re.findall(r"(--[a-z-]+)=.*:\(([^)]*)\)", text)}


def fish():
    text = (COMPLETIONS / "visex-host.fish").read_text()
    text = text.replace("$languages", re.search(r"set -l languages (.*)", text)[1])
    options = {f"--{name}" for name in re.findall(r"^complete .* -l ([a-z-]+)", text, re.MULTILINE)}
    return options, {f"--{name}": set(words.split())
                     for name, words in re.findall(r""" -l ([a-z]+) -x -a ["']?([^(]*?)["']? -d""", text)}


def fish_files():
    """The options after which fish offers files."""
    text = (COMPLETIONS / "visex-host.fish").read_text()
    return {f"--{name}" for name in re.findall(r" -l ([a-z-]+) -r -F", text)}


def readme():
    """The options with their values, and what is said of each."""
    rows = [line for line in (ROOT / "README.md").read_text().splitlines() if line.startswith("| `-")]
    told = {}
    for row in rows:
        for option, value in re.findall(r"`(--[a-z-]+) ?([A-Z]*)`", row.split("|")[1]):
            told[option] = value, row
    return told


def man_page():
    text = (ROOT / "host/visex-host.1").read_text().replace("\\-", "-")
    text = text[text.index(".SH OPTIONS"):text.index(".SH ANSWERS")]
    return {option: (value, meaning) for option, value, meaning in
            re.findall(r'^\.B[IR]? (?:-h ", " )?(--[a-z-]+)(?: " ([A-Z]+)")?\n((?:(?!\.TP|\.SH).*\n)*)', text, re.MULTILINE)}


def differences(host):
    zsh_options, zsh_offers = zsh()
    fish_options, fish_offers = fish()
    bash_offers = {option: bash(option, "") for option in host.offers}
    after_sign = {option: bash(option, "=") for option in host.offers}  # which bash takes for a word
    begun = {option: set().union(*(bash(option, "=", word[:-1]) for word in words)) for option, words in host.offers.items()}
    told = {"README": readme(), "the man page": man_page()}
    names = {place: set(options) for place, options in told.items()}
    names.update({"bash": bash("--") | {"--help"}, "zsh": zsh_options, "fish": fish_options})
    for place, options in names.items():
        for option in sorted(options ^ set(host.values)):
            yield f"{place} and --help differ about {option}"
    for option in fish_files() ^ {option for option, value in host.values.items() if value == "FILE"}:
        yield f"fish and --help differ about files after {option}"
    for place, offers in (("bash", bash_offers), ("bash", after_sign), ("bash", begun), ("zsh", zsh_offers), ("fish", fish_offers)):
        for option, words in host.offers.items():
            if offers.get(option) != words:
                yield f"{place} offers {sorted(offers.get(option, ()))} after {option}, and not {sorted(words)}"
    for place, options in told.items():
        for option, value in host.values.items():
            if option in options and options[option][0] != value:
                yield f"{place} names the value of {option} '{options[option][0]}', and --help '{value}'"
        for option, wanted in host.defaults.items():
            words = {"the first available": ["first of them"], "the user's": ["user's own"],
                     "that of --record, else 1000": ["--record", "else 1000"]}.get(wanted, [wanted])
            text = re.sub(r"\s+", " ", re.sub(r"\n\.\w+ ", " ", options.get(option, ("", ""))[1]))
            for word in words:
                if word.replace("the application's", "application's") not in text:
                    yield f"{place} does not tell the default of {option}, {wanted}"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if not pathlib.Path(sys.argv[1]).is_file():
        sys.exit(f"{sys.argv[1]} is not built: cmake --build build/release --target visex-host")
    host = Host(sys.argv[1])
    assert len(host.values) > 10 and len(host.codes) > 1 and len(host.displays) == 3, vars(host)
    found = list(differences(host))
    print(*found, sep="\n")
    sys.exit(bool(found))


main()
