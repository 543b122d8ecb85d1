# shellcheck shell=bash disable=SC2154
# Sourced by tests that print: a print service of their own with a queue whose jobs are files. Needs the packages
# cups-daemon and cups-client, and to be root, as a service is that hands its work to another user.

# start_queue NAME: in $work, after virtual_screen.sh. The last of its jobs is a PDF file, $job.
job=
# lpstat succeeds without a service too, and says which it is.
service_there() { LC_ALL=C lpstat -r 2>/dev/null | grep -q "is running"; }
start_queue() {
    local root=$work/cups
    mkdir -p "$root"/{spool,cache,run,log,ssl,tmp} "$work/jobs"
    chmod 755 "$work"
    job=$work/jobs/job.pdf
    cat >"$root/cups-files.conf" <<CONF
FileDevice Yes
ServerRoot $root
RequestRoot $root/spool
CacheDir $root/cache
StateDir $root/run
TempDir $root/tmp
ServerKeychain $root/ssl
AccessLog $root/log/access
ErrorLog $root/log/error
PageLog $root/log/page
SystemGroup root
CONF
    cat >"$root/cupsd.conf" <<CONF
Listen $root/run/socket
Browsing No
WebInterface No
DefaultAuthType None
LogLevel info
PreserveJobFiles No
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
</Limit>
</Policy>
CONF
    # A4 and Letter with 12 points at the left and right, 18 at the top and bottom that nothing is printed on.
    # PDF goes through as it is.
    cat >"$root/queue.ppd" <<'PPD'
*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "QUEUE.PPD"
*Manufacturer: "Quelmont"
*Product: "(Test)"
*ModelName: "Test"
*ShortNickName: "Test"
*NickName: "Test"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*cupsFilter: "application/pdf 0 FILTER"
*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize Letter/US Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Page Region: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Letter/US Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "12 18 583 824"
*ImageableArea Letter/US Letter: "12 18 600 774"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/US Letter: "612 792"
PPD
    # Arguments: job, user, title, copies, options and, for the first filter, the file.
    # shellcheck disable=SC2016 # the filter's own arguments
    printf '#!/bin/sh\nexec cat ${6:+"$6"}\n' >"$root/pass"
    chmod 755 "$root/pass"
    sed -i "s|FILTER|$root/pass|" "$root/queue.ppd"
    /usr/sbin/cupsd -f -c "$root/cupsd.conf" -s "$root/cups-files.conf" >"$root/out" 2>&1 &
    pids+=($!)
    export CUPS_SERVER=$root/run/socket
    eventually "the print service" service_there
    if ! lpadmin -p "$1" -E -v "file://$job" -P "$root/queue.ppd" 2>>"$root/out" || ! lpadmin -d "$1" 2>>"$root/out"; then
        cat "$root/out" >&2
        fail "the queue could not be made"
    fi
}
