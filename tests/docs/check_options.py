"""Whether README, the man page and the completion know the options that --help tells, and no others.

usage: check_options.py HOST
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def told_by_help(host):
    text = subprocess.run([host, "--help"], check=True, capture_output=True, text=True).stdout
    return set(re.findall(r"^  (--[a-z-]+)", text, re.MULTILINE))


def told_in_readme():
    rows = [line for line in (ROOT / "README.md").read_text().splitlines() if line.startswith("| `--")]
    return {option for row in rows for option in re.findall(r"`(--[a-z-]+)", row.split("|")[1])}


def told_by_man_page():
    text = (ROOT / "host/visex-host.1").read_text().replace("\\-", "-")
    return set(re.findall(r"^\.BI? (--[a-z-]+)", text, re.MULTILINE))


def completed():
    """What bash offers after `visex-host --`."""
    script = f"""source {ROOT}/host/visex-host.bash-completion
        COMP_WORDS=(visex-host --) COMP_CWORD=1
        compopt() {{ :; }}
        _visex_host
        printf '%s\\n' "${{COMPREPLY[@]}}" """
    output = subprocess.run(["bash", "-c", script], check=True, capture_output=True, text=True).stdout
    return set(output.split())


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if not pathlib.Path(sys.argv[1]).is_file():
        sys.exit(f"{sys.argv[1]} is not built: cmake --build build/release --target visex-host")
    wanted = told_by_help(sys.argv[1])
    assert len(wanted) > 10, wanted
    wrong = False
    for place, told in (("README", told_in_readme()), ("the man page", told_by_man_page()),
                        ("the completion", completed())):
        for option in sorted(wanted ^ told):
            wrong = True
            print(f"{place} {'does not tell of' if option in wanted else 'tells of'} {option}, which --help "
                  f"{'does' if option in wanted else 'does not'}")
    sys.exit(wrong)


main()
