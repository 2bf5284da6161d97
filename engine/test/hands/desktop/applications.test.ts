import { describe, expect, test } from "bun:test";
import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { applicationNamed, commandOf, installedApplications, type Application } from "../../../src/hands/desktop/applications.ts";
import { temporaryFolder } from "../../support/folders.ts";

/** Writes desktop files into the folder of applications of one data folder. */
function dataFolder(files: Record<string, string>): string {
  const folder = temporaryFolder();
  for (const [name, lines] of Object.entries(files)) {
    mkdirSync(join(folder, "applications", name, ".."), { recursive: true });
    writeFileSync(join(folder, "applications", name), `[Desktop Entry]\nType=Application\n${lines}\n`);
  }
  return folder;
}

function applicationsOf(own: Record<string, string>, system: Record<string, string> = {}, more: Record<string, string> = {}, tag = "pt-BR") {
  const environment = { HOME: "/nowhere", XDG_DATA_HOME: dataFolder(own), XDG_DATA_DIRS: dataFolder(system), ...more };
  return installedApplications(environment, tag, (program) => (program === "there" ? "/usr/bin/there" : undefined));
}

const calculator = "Name=Calculator\nName[pt]=Calculadora pt\nName[pt_BR]=Calculadora\nGenericName=Sums\nExec=gnome-calculator %U";

describe("an application", () => {
  test("has its name in the user's language, else in that of the file", () => {
    const names = (tag: string): string[] => applicationsOf({ "c.desktop": calculator }, {}, {}, tag).map(({ name }) => name);
    expect(names("pt-BR")).toEqual(["Calculadora"]);
    expect(names("pt-PT")).toEqual(["Calculadora pt"]);
    expect(names("en-US")).toEqual(["Calculator"]);
  });

  test("is shown where a menu would show it", () => {
    const files = {
      "hidden.desktop": "Name=A\nExec=a\nHidden=true",
      "menu.desktop": "Name=B\nExec=b\nNoDisplay=true",
      "kde.desktop": "Name=C\nExec=c\nOnlyShowIn=KDE;",
      "not.desktop": "Name=D\nExec=d\nNotShowIn=GNOME;",
      "gone.desktop": "Name=E\nExec=e\nTryExec=away",
      "there.desktop": "Name=F\nExec=f\nTryExec=there",
      "empty.desktop": "Name=G",
      "action.desktop": "Name=I\nExec=i\n[Desktop Action new]\nName=New\nHidden=true",
      "readme.txt": "Name=J\nExec=j",
    };
    expect(applicationsOf({}, files, { XDG_CURRENT_DESKTOP: "ubuntu:GNOME" }).map(({ name }) => name)).toEqual(["I", "F"]);
  });

  test("of the user's own hides the system's of the same id, also to be seen no more", () => {
    const own = { "sub/a.desktop": "Name=Mine\nExec=mine", "b.desktop": "Hidden=true" };
    const system = { "sub-a.desktop": "Name=Theirs\nExec=theirs", "b.desktop": "Name=B\nExec=b" };
    expect(applicationsOf(own, system).map(({ id, name }) => [id, name])).toEqual([["sub-a.desktop", "Mine"]]);
  });

  test("is found by its name, its program and its kind, and never by a guess among several", () => {
    const all = applicationsOf({
      "org.gnome.Calculator.desktop": calculator,
      "firefox-esr.desktop": "Name=Firefox ESR\nGenericName=Web Browser\nGenericName[pt_BR]=Navegador Web\nExec=/usr/lib/firefox-esr/firefox-esr %u",
      "term1.desktop": "Name=Terminal One\nExec=t1",
      "term2.desktop": "Name=Terminal Two\nExec=t2",
      "libreoffice-writer.desktop": "Name=LibreOffice Writer\nExec=libreoffice --writer %U",
    });
    const found = (said: string): string | undefined => applicationNamed(said, all)?.id;
    expect(found("a calculadora")).toBeUndefined();
    expect(found("calculadora")).toBe("org.gnome.Calculator.desktop");
    expect(found("Calculator")).toBe("org.gnome.Calculator.desktop");
    expect(found("navegador web")).toBe("firefox-esr.desktop");
    expect(found("firefox")).toBe("firefox-esr.desktop");
    expect(found("libre office writer")).toBe("libreoffice-writer.desktop");
    expect(found("terminal")).toBeUndefined();
    expect(found("terminal two")).toBe("term2.desktop");
    expect(found("")).toBeUndefined();
    expect(found("mind")).toBeUndefined();
  });
});

test("a command line loses its field codes and keeps its quotes", () => {
  const command = (exec: string): string[] | undefined => commandOf({ id: "x", file: "/a/x.desktop", name: "The name", aliases: [], exec } satisfies Application);
  expect(command("gnome-calculator %U")).toEqual(["gnome-calculator"]);
  expect(command('sh -c "echo \\"hi\\" \\$HOME" %f %i --title %c --file=%k 100%%')).toEqual(["sh", "-c", 'echo "hi" $HOME', "--title", "The name", "--file=/a/x.desktop", "100%"]);
  expect(command('env "A=b c" run ""')).toEqual(["env", "A=b c", "run", ""]);
  expect(command('"unfinished')).toBeUndefined();
  expect(command("%U")).toBeUndefined();
  expect(command("")).toBeUndefined();
});
