"""Adds "Rename with Multi Rename" to the menu of selected files; needs python3-nautilus."""

import subprocess

from gi.repository import GObject, Nautilus


class MultiRenameMenu(GObject.GObject, Nautilus.MenuProvider):
    def get_file_items(self, *arguments):
        # Before version 4 the window comes first.
        paths = [file.get_location().get_path() for file in arguments[-1]]
        if not paths or None in paths:
            return []
        item = Nautilus.MenuItem(
            name="MultiRename::rename",
            label="Rename with Multi Rename",
            tip="Opens the names of the selected files in your editor")
        item.connect("activate", lambda _: subprocess.Popen(["multirename-in-terminal", *paths]))
        return [item]
