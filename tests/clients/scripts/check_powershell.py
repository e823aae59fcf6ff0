"""Whether PowerShell's grammar takes the files: check_powershell.py FILE..."""

import sys

import tree_sitter
import tree_sitter_powershell

parser = tree_sitter.Parser(tree_sitter.Language(tree_sitter_powershell.language()))
wrong = 0
for path in sys.argv[1:]:
    with open(path, "rb") as file:
        pending = [parser.parse(file.read()).root_node]
    while pending:
        node = pending.pop()
        if node.type == "ERROR" or node.is_missing:
            print(f"{path}:{node.start_point[0] + 1}: {node.text.decode()[:60]}")
            wrong += 1
        pending += node.children
    print(f"{path}: read")
sys.exit(wrong > 0)
