"""The pages of the reference: what the type library says of each member, with what members.yaml tells of it."""

from pathlib import Path

import yaml

import interfaces

TEXTS = Path(__file__).parents[1] / "reference" / "members.yaml"
MEMBER_KEYS = {"does", "waits", "nothing", "false", "errors", "parameters", "example", "within", "not_run"}
PAGE_KEYS = {"title", "about", "setup", "parameters", "members"}


def texts_of(path=TEXTS):
    return yaml.safe_load(Path(path).read_text(encoding="utf-8"))


def problems(library, texts):
    """What the type library has and the texts lack, and the other way round."""
    found = []
    used_waits, used_parameters = set(), set()
    pages = texts["interfaces"]
    for interface in library:
        page = pages.get(interface.name)
        if page is None:
            found.append(f"{interface.name} has no page")
            continue
        found += [f"{interface.name}: unknown key {key}" for key in page.keys() - PAGE_KEYS]
        members = page["members"]
        for member in interface.members:
            where = f"{interface.name}.{member.name}"
            text = members.get(member.name)
            if text is None:
                found.append(f"{where} has no text")
                continue
            found += [f"{where}: unknown key {key}" for key in text.keys() - MEMBER_KEYS]
            needed = {"does", "waits", "example"}
            if member.result.startswith("I") or member.result == "object":
                needed.add("nothing")
            if member.result == "Boolean" and not member.is_property:
                needed.add("false")
            found += [f"{where} does not tell: {key}" for key in sorted(needed - text.keys())]
            used_waits |= {wait for wait in _listed(text.get("waits", [])) if wait in texts["waits"]}
            own = text.get("parameters", {})
            names = {parameter.name for parameter in member.parameters}
            found += [f"{where} has no parameter {name}" for name in sorted(own.keys() - names)]
            for name in sorted(names - own.keys()):
                if name not in page.get("parameters", {}) and name not in texts["parameters"]:
                    found.append(f"{where}: its parameter {name} has no text")
                used_parameters.add(name)
        found += [f"{interface.name} has no member {name}"
                  for name in members.keys() - {member.name for member in interface.members}]
    found += [f"there is no interface {name}" for name in pages.keys() - {interface.name for interface in library}]
    found += [f"nothing waits for {name}" for name in texts["waits"].keys() - used_waits]
    found += [f"no parameter is called {name}" for name in texts["parameters"].keys() - used_parameters]
    return found


def _listed(value):
    return value if isinstance(value, list) else [value]


def _type(name):
    return f"[{name}]({name}.md)" if name.startswith("I") else name


def _default(parameter):
    if not parameter.optional:
        return ""
    return f"`\"{parameter.default}\"`" if isinstance(parameter.default, str) else f"`{parameter.default}`"


def _call(member):
    """How the member is written in a script."""
    if not member.parameters and member.is_property:
        return member.name
    inside = ", ".join(f"[{parameter.name}]" if parameter.optional else parameter.name
                       for parameter in member.parameters)
    return f"{member.name}({inside})"


def _access(member):
    if not member.is_property:
        return ""
    return {(True, True): "read and written", (True, False): "read only", (False, True): "written only"}[
        (member.readable, member.writable)]


def _member(interface, member, page, texts):
    text = page["members"][member.name]
    lines = [f"```{{index}} single: {member.name}; {page['title']}", "```", "", f"## {member.name}", "",
             f"`{_call(member)}`" + (f" → {_type(member.result)}" if member.result else "")
             + (f", {_access(member)}" if member.is_property else ""), "", text["does"], ""]
    if member.parameters:
        lines += ["| Parameter | Type | Default | |", "|---|---|---|---|"]
        for parameter in member.parameters:
            meaning = text.get("parameters", {}).get(parameter.name) or page.get("parameters", {}).get(
                parameter.name) or texts["parameters"][parameter.name]
            meaning = meaning.replace("|", "\\|")
            lines.append(f"| `{parameter.name}` | {parameter.type} | {_default(parameter)} | {meaning} |")
        lines.append("")
    told = [("Waits", [texts["waits"].get(wait, wait) for wait in _listed(text["waits"])])]
    told += [(label, [text[key]]) for label, key in
             (("Nothing", "nothing"), ("False", "false"), ("Errors", "errors")) if key in text]
    for label, sentences in told:
        lines += [f"**{label}**"]
        for sentence in sentences:
            lines += [f": {sentence}", ""]
    lines += ["```vbscript", text["example"].rstrip(), "```", ""]
    return lines


def page_of(interface, page, texts, library):
    lines = [f"# {page['title']} (`{interface.name}`)", "", page["about"], ""]
    bases, base = [], interface.base
    while base != "IDispatch":
        bases.append(_type(base))
        base = next(other.base for other in library if other.name == base)
    if bases:
        lines += [f"Has the members of {' and of '.join(bases)} too.", ""]
    lines += ["| Member | |", "|---|---|"]
    for member in interface.members:
        first = page["members"][member.name]["does"].split(". ")[0].rstrip(".:") + "."
        lines.append(f"| [{member.name}](#{member.name.lower()}) | {first} |")
    lines += ["", "The examples on this page go on from here:", "", "```vbscript"]
    lines += ['Set ghosthand = CreateObject("Ghosthand.Ghosthand")']
    if interface.name != "IGhosthand":
        lines.append('Set host = ghosthand.MainWindow("sample_host")')
    lines += page.get("setup", "").rstrip().splitlines() + ["```", ""]
    for member in interface.members:
        lines += _member(interface, member, page, texts)
    return "\n".join(lines)


def overview(library, enumerations, texts):
    lines = ["# Reference", "",
             "Every member of every interface, with its parameters, its result, what it waits for and an example that the "
             "tests run against the sample program. The {ref}`index <genindex>` lists the members by name.", "",
             texts["errors"], "",
             "| Interface | | Members |", "|---|---|---|"]
    for interface in library:
        lines.append(f"| {_type(interface.name)} | {texts['interfaces'][interface.name]['title']} "
                     f"| {len(interface.members)} |")
    for name, constants in enumerations.items():
        listed = ", ".join(f"`{constant}` {value}" for constant, value in constants)
        lines += ["", f"`{name}`: {listed}."]
    lines += ["", "```{toctree}", ":hidden:", ""] + [interface.name for interface in library] + ["```", ""]
    return "\n".join(lines)


def write(type_library, folder):
    """Writes the pages. Raises ValueError where type library and texts do not agree."""
    library, enumerations = interfaces.read(type_library)
    texts = texts_of()
    found = problems(library, texts)
    if found:
        raise ValueError("members.yaml and the type library disagree:\n  " + "\n  ".join(found))
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "index.md").write_text(overview(library, enumerations, texts), encoding="utf-8")
    for interface in library:
        page = page_of(interface, texts["interfaces"][interface.name], texts, library)
        (folder / f"{interface.name}.md").write_text(page, encoding="utf-8")
