"""The rule tavrel_bank, which checks a build script and packs its bank as one hermetic action."""

def _linked(ctx, file):
    """Returns a link to a file, in a folder that has the layout of the source tree."""
    place = file.short_path.replace("../", "external/")
    link = ctx.actions.declare_file(ctx.label.name + ".inputs/" + place)
    ctx.actions.symlink(output = link, target_file = file)
    return link

def _intact(ctx, bank, header):
    """Returns an empty folder, made by an action that fails if the bank or its header is damaged.

    The record that a cache keeps of an action has no checksum. Bazel takes some damaged records for
    those of empty outputs. This action has the outputs as its inputs: the right ones lead to its
    own record in the cache, and all others make it run.

    The bank is compared with itself. That prints nothing, and fails unless the bank opens and the
    header that tavrel writes is next to it.
    """
    intact = ctx.actions.declare_directory(ctx.label.name + ".intact")
    ctx.actions.run(
        mnemonic = "TavrelIntact",
        progress_message = "Opening %s" % bank.short_path,
        executable = ctx.executable._tavkit,
        arguments = ["diff", "--ids", bank.path, bank.path],
        inputs = [bank, header],
        outputs = [intact],
    )
    return intact

def _tavrel_bank_impl(ctx):
    script = ctx.file.script
    assets = ctx.files.assets

    # A script finds its assets from its own folder. Where some of the files are sources and others
    # are made by the build, that folder isn't the same for all of them.
    if len({file.is_source: None for file in [script] + assets}) > 1:
        script = _linked(ctx, script)
        assets = [_linked(ctx, file) for file in assets]

    # tavkit changes to the folder of the script. All other paths lead back from it.
    folder = script.dirname
    back = "../" * len(folder.split("/")) if folder != "." else ""

    declared = ctx.actions.declare_file(ctx.label.name + ".declared")
    names = ctx.actions.args()
    names.set_param_file_format("multiline")
    names.add_all(assets, format_each = back + "%s")
    ctx.actions.write(declared, names)

    bank = ctx.actions.declare_file(ctx.label.name + ".tvb")
    header = ctx.actions.declare_file(ctx.label.name + ".h")
    arguments = ctx.actions.args()
    arguments.add_all(["build", "-q", "-C", folder])
    arguments.add("--declared", declared, format = back + "%s")
    arguments.add("--bank-dir", bank.dirname, format = back + "%s")
    arguments.add("--header-dir", header.dirname, format = back + "%s")
    if ctx.attr.prefix:
        arguments.add("--prefix", ctx.attr.prefix)
    if not ctx.attr.check:
        arguments.add("--no-check")
    arguments.add(script.basename)

    ctx.actions.run(
        mnemonic = "TavrelBank",
        progress_message = "Packing %s" % bank.short_path,
        executable = ctx.executable._tavkit,
        arguments = [arguments],
        inputs = [script, declared] + assets,
        outputs = [bank, header],
        # The header's time stamp: equal inputs give equal outputs.
        env = {"SOURCE_DATE_EPOCH": "0"},
    )
    intact = _intact(ctx, bank, header)
    return [
        DefaultInfo(
            files = depset([bank, header, intact]),
            runfiles = ctx.runfiles(files = [bank, intact]),
        ),
        OutputGroupInfo(
            bank = depset([bank]),
            header = depset([header]),
            _validation = depset([intact]),
        ),
    ]

tavrel_bank = rule(
    implementation = _tavrel_bank_impl,
    doc = """Packs the bank NAME.tvb and its header NAME.h.

The script must name this bank: BankFileName NAME.tvb. The output groups `bank` and `header` have one of
the two files each. Needs a sandbox or remote execution, which are what Bazel uses by default.""",
    attrs = {
        "script": attr.label(
            allow_single_file = True,
            mandatory = True,
            doc = "The build script.",
        ),
        "assets": attr.label_list(
            allow_files = True,
            doc = "The files that the script names. One that isn't listed here fails the build, " +
                  "one that is listed and not used is a warning.",
        ),
        "prefix": attr.string(
            doc = "What all defines start with, instead of the bank's name.",
        ),
        "check": attr.bool(
            default = True,
            doc = "Whether errors that `tavkit check` finds fail the build. Without the check, the " +
                  "bank is packed as tavrel does.",
        ),
        "_tavkit": attr.label(
            default = "//tavrel:tavkit",
            allow_single_file = True,
            executable = True,
            cfg = "exec",
        ),
    },
)
