#!/usr/bin/python3
"""Loads exports to KiCad by KiCad itself. scripts/kicad-load runs it.

Footprints are loaded through KiCad's module pcbnew. The module has no reader of symbols. So symbols are put into a schematic, whose
symbols have the format of a symbol library, and KiCad's editor of schematics opens it. A file that the editor cannot read gives a
window with an error, and the title says that no schematic is loaded.
"""
import argparse
import os
import re
import subprocess
import sys
import tempfile
import time
import uuid

import pcbnew

PARTS_OF_A_LIBRARY = 500
ENTRY = re.compile(r'^  \(symbol "((?:[^"\\]|\\.)*)".*?^  \)\n', re.S | re.M)
ESCAPED = re.compile(r'\\(.)', re.S)
WINDOW = re.compile(r'0x[0-9a-f]+ "([^"]+)"')
MOST_SECONDS = 120

# Names of parts, and what makes each of them odd.
NAMES = [b'quote " inside', b'(parentheses)', b'a/b\\c', b' blanks at the ends ', b'line\nfeed', b'tab\tand\x01control', b'\xff\xfe no UTF-8',
         'Widerst\u00e4nde \u03a9'.encode(), 'Widerst\u00e4nde'.encode('cp1252'), b'n' * 300, b'"' * 300, b'a:b', b'a{slash}b', b'50%', b'$x',
         b'=', b'==', b'=2F', b'~', b'NUL', b'com1.x', b'.hidden', b'end.', b'semi;colon', b"'", b'a,b', b'#1', b'<>|?*', '\u200b'.encode(),
         '\u202egnidrac'.encode(), b'x\x7fy']


def message(text, found):
    print(text[:500])
    found.append(text)


def exported(program, place, files, say):
    done = subprocess.run([program, *files, '--kicad', place, '--models', 'no', '--quiet'], capture_output=True)
    if done.returncode != 0:
        say('export: code %d: %s' % (done.returncode, done.stderr.decode('utf-8', 'replace')[-400:]))


# -- names --------------------------------------------------------------------------------------------------------------------------

def original(name):
    """The bytes of the name of a part, by the rule that docs/kicad.md has; None for a name that was cut."""
    data = name.encode('utf-8')
    if data == b'=':
        return b''
    if re.search(rb'==[0-9A-F]{16}\Z', data):
        return None
    return re.sub(rb'=([0-9A-F]{2})', lambda m: bytes([int(m.group(1), 16)]), data)


def text_of(data):
    """What a text in KiCad says; None for one with bytes that are no UTF-8. No text can hold most of the control characters."""
    try:
        return re.sub('[\x01-\x08\x0b\x0c\x0e-\x1f\x7f]', '\ufffd', data.decode('utf-8'))
    except UnicodeDecodeError:
        return None


# -- footprints ---------------------------------------------------------------------------------------------------------------------

class Messages:
    """What KiCad writes to standard error meanwhile."""

    def __enter__(self):
        self.file = tempfile.TemporaryFile()
        self.former = os.dup(2)
        os.dup2(self.file.fileno(), 2)
        return self

    def __exit__(self, *error):
        os.dup2(self.former, 2)
        os.close(self.former)
        self.file.seek(0)
        self.text = self.file.read().decode('utf-8', 'replace').strip()
        self.file.close()


def load_footprints(place, say):
    """The names of the footprints of a library that KiCad loads."""
    plugin = pcbnew.IO_MGR.PluginFind(pcbnew.IO_MGR.KICAD_SEXP)
    names = sorted(f[:-len('.kicad_mod')] for f in os.listdir(place))
    loaded = []
    with Messages() as messages:
        for name in names:
            try:
                footprint = plugin.FootprintLoad(place, name)
            except OSError as error:
                say('footprint "%s": %s' % (name, error))
                break
            if footprint is None:
                say('footprint "%s" is not in the library' % name)
                continue
            loaded.append(name)
            if footprint.GetFPID().GetUniStringLibItemName() != name:
                say('footprint "%s" has the name "%s"' % (name, footprint.GetFPID().GetUniStringLibItemName()))
            properties = footprint.GetProperties()
            kept = properties['VEKA name'] if 'VEKA name' in properties else name
            back = original(name)
            if back is not None and text_of(back) is not None and text_of(back) != kept:
                say('footprint "%s" was called "%s"' % (name, kept))
    if messages.text:
        say('footprints of %s: KiCad says: %s' % (place, messages.text))
    return loaded


# -- symbols ------------------------------------------------------------------------------------------------------------------------

def symbols_of(path):
    with open(path, encoding='utf-8') as f:
        text = f.read()
    entries = [(m.group(1), m.group(0)) for m in ENTRY.finditer(text)]
    rest = ENTRY.sub('', text).split()
    if rest != '(kicad_symbol_lib (version 20211014) (generator veka) )'.split():
        raise ValueError('the library has more than symbols: %s' % ' '.join(rest)[:200])
    return entries


def schematic(entries):
    text = ['(kicad_sch (version 20211123) (generator eeschema)\n  (uuid %s)\n  (paper "A0")\n  (lib_symbols\n' % uuid.uuid4()]
    text += [entry.replace('(symbol "%s"' % name, '(symbol "L:%s"' % name, 1) for name, entry in entries]
    text.append('  )\n')
    for i, (name, entry) in enumerate(entries):
        text.append('  (symbol (lib_id "L:%s") (at %g %g 0) (unit 1) (uuid %s)\n    (property "Reference" "U" (id 0) (at 0 0 0))\n  )\n' % (
            name, 25.4 * (i % 40 + 1), 25.4 * (i // 40 + 1), uuid.uuid4()))
    text.append('  (sheet_instances (path "/" (page "1")))\n)\n')
    return ''.join(text)


def windows():
    tree = subprocess.run(['xwininfo', '-root', '-tree'], capture_output=True, text=True).stdout
    return [title for title in WINDOW.findall(tree) if title.lower() != 'eeschema']


def loads(entries, work, name):
    """True if KiCad's editor of schematics opens a schematic with some symbols, and says nothing."""
    path = os.path.join(work, name + '.kicad_sch')
    with open(path, 'w', encoding='utf-8') as f:
        f.write(schematic(entries))
    editor = subprocess.Popen(['eeschema', path], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        begin = time.monotonic()
        while time.monotonic() - begin < MOST_SECONDS:
            time.sleep(0.5)
            titles = windows()
            if editor.poll() is not None or 'Error' in titles:
                return False
            if any(name in title for title in titles):
                time.sleep(1)  # a message would come after the schematic
                return len(windows()) == 1
        raise OSError("KiCad's editor of schematics opened nothing. Its windows: %s" % ', '.join(windows()))
    finally:
        editor.kill()
        editor.wait()


def wrong_symbols(entries, work):
    """The symbols among some that KiCad does not load."""
    if not entries or loads(entries, work, 'symbols'):
        return []
    if len(entries) == 1:
        return entries
    half = len(entries) // 2
    return wrong_symbols(entries[:half], work) + wrong_symbols(entries[half:], work)


def load_symbols(path, work, say):
    """The names of the symbols of a library that KiCad loads."""
    entries = symbols_of(path)
    wrong = wrong_symbols(entries, work)
    for name, entry in wrong:
        say('symbol "%s": KiCad does not load it' % name)
    for name, entry in entries:
        if not original_is_kept(unescaped(name), entry):
            say('symbol "%s" does not lead back to its part number' % name)
    return [unescaped(name) for name, entry in entries if (name, entry) not in wrong]


def unescaped(text):
    return ESCAPED.sub(lambda m: {'n': '\n', 't': '\t', 'r': '\r'}.get(m.group(1), m.group(1)), text)


def original_is_kept(name, entry):
    m = re.search(r'\(property "MPN" "((?:[^"\\]|\\.)*)"', entry)
    back = original(name)
    return m is not None and (back is None or text_of(back) is None or text_of(back) == unescaped(m.group(1)))


# -- all of it ----------------------------------------------------------------------------------------------------------------------

def quoted(data):
    """A name as the reader takes it: a quote is doubled by nothing, so that it stands with its backslash."""
    return b'"' + data.replace(b'"', b'\\"') + b'"'


def make_part(name):
    """A part whose number and footprint have a name."""
    return (b'(VEK (PARTGENERAL (MPN ' + quoted(name) + b')))\n(PADS (PAD (PADNAME P) (FILLRECT (W 1) (H 2))))\n'
            b'(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P))))\n'
            b'(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME ' + quoted(name) + b') (FPINS (FPIN 1 1 (LIBPADSTACK S) (PT 0 0)))))\n')


def check_names(program, work, say):
    files = []
    for i, name in enumerate(NAMES):
        files.append(os.path.join(work, 'name%d.veka' % i))
        with open(files[-1], 'wb') as f:
            f.write(make_part(name))
    place = os.path.join(work, 'names')
    exported(program, place, files, say)
    # What the reader made of each name: a quote keeps its backslash.
    expected = {name.replace(b'"', b'\\"') for name in NAMES}
    for kind, names in (('footprint', load_footprints(place + '.pretty', say)), ('symbol', load_symbols(place + '.kicad_sym', work, say))):
        if len(names) != len(expected):
            say('%s: %d names became %d' % (kind, len(expected), len(names)))
        back = [original(name) for name in names]
        cut = sum(b is None for b in back)
        for lost in expected - set(back):
            # Only a name that is too long for a file is cut.
            if kind == 'symbol' or len(lost) < 66:
                say('%s: no name leads back to %r' % (kind, lost))
            else:
                cut -= 1
        if cut:
            say('%s: %d names were cut without need' % (kind, cut))
    return len(expected)


def main():
    options = argparse.ArgumentParser()
    options.add_argument('--program', required=True)
    options.add_argument('--count', type=int, default=60)
    options.add_argument('--work', required=True)
    options.add_argument('folder')
    asked = options.parse_args()
    program = os.path.abspath(asked.program)
    for table in ('sym', 'fp'):
        for folder in (asked.work, os.path.join(asked.work, '6.0')):
            os.makedirs(folder, exist_ok=True)
            with open(os.path.join(folder, table + '-lib-table'), 'w', encoding='utf-8') as f:
                f.write('(%s_lib_table)\n' % table)
            # Without settings KiCad asks its questions of the first start.
            with open(os.path.join(folder, 'kicad_common.json'), 'w', encoding='utf-8') as f:
                f.write('{"meta": {"filename": "kicad_common.json", "version": 3}}\n')
    found = []
    names = check_names(program, asked.work, lambda text: message(text, found))
    # The check must see a symbol that is wrong.
    if loads([('x', '  (symbol "x" (pin_names (bogus)))\n')], asked.work, 'wrong'):
        message('KiCad does not tell a symbol that is wrong', found)
    files = []
    if os.path.isdir(asked.folder):
        files = sorted(os.path.join(asked.folder, f) for f in os.listdir(asked.folder) if f.endswith('.veka'))
        # Spread over the families of the names.
        if len(files) > asked.count:
            files = [files[i * len(files) // asked.count] for i in range(asked.count)]
    else:
        print('There are no parts in %s: only names were tried.' % asked.folder)
    footprints, symbols = 0, 0
    for i in range(0, len(files), PARTS_OF_A_LIBRARY):
        place = os.path.join(asked.work, 'parts%d' % i)
        some = files[i:i + PARTS_OF_A_LIBRARY]
        exported(program, place, some, lambda text: message(text, found))
        footprints += len(load_footprints(place + '.pretty', lambda text: message(text, found)))
        loaded = len(load_symbols(place + '.kicad_sym', asked.work, lambda text: message(text, found)))
        if loaded != len(some):
            print('%d parts have %d symbols: some have the same number' % (len(some), loaded))
        symbols += loaded
        if len(files) > PARTS_OF_A_LIBRARY:
            print('%d of %d parts' % (i + len(some), len(files)), flush=True)
    print('%d odd names, %d parts: KiCad loads %d footprints and %d symbols; %d messages' % (
        names, len(files), footprints, symbols, len(found)))
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
