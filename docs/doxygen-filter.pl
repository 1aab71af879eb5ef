#!/usr/bin/perl
# Doxygen input filter for the library's public headers. Each header opens with a plain comment
# that says what its class is for; this filter hands that comment to Doxygen as the class's
# description (with the class's folder as its group) and turns the plain comments written
# above members and further classes into Doxygen comments.
# An exported class without a description is reported on stderr as "warning:", which
# ./run.sh docs counts as an error.
use strict;
use warnings;

my $path = $ARGV[0];
open(my $in, '<', $path) or die "cannot read $path\n";
my @lines = <$in>;
close($in);

my ($group) = $path =~ m{(?:^|/)((?:core/units)|core|style|widgets|controls|pickers|menus|property|browser|attributes|dialogs|propertybrowser)/[^/]+$};
$group //= 'other';
$group =~ s{/}{_}g;

# The opening comment: the first run of // lines before any declaration.
my ($first, $last) = (-1, -1);
for my $i (0 .. $#lines) {
    my $l = $lines[$i];
    next if $l =~ /^\s*$/ || $l =~ /^\s*#\s*pragma\s+once/;
    if ($l =~ m{^\s*//}) {
        $first = $i if $first < 0;
        $last = $i;
        next;
    }
    last;
}
my @opening;
if ($first >= 0) {
    for my $i ($first .. $last) {
        (my $t = $lines[$i]) =~ s{^\s*//\s?}{};
        chomp $t;
        push @opening, $t;
        $lines[$i] = "\n";
    }
}

# Namespaces open at a line, to qualify class names; braces are counted roughly, which is
# enough for headers of declarations.
my @namespaces;
my @open_at_depth;
my $depth = 0;
my $described_first = 0;
for my $i (0 .. $#lines) {
    my $l = $lines[$i];
    if ($l =~ /^\s*namespace\s+([\w:]+)\s*\{/) {
        push @namespaces, $1;
        push @open_at_depth, $depth;
    }
    if ($l =~ /^\s*(?:class|struct)\s+(\w+_EXPORT\s+)?(\w+)\b(?!.*;\s*$)/ && $l !~ /^\s*(?:class|struct)\s+\w+\s*;/) {
        my ($exported, $name) = ($1, $2);
        my $qualified = join('::', @namespaces, $name);
        my $above = $i > 0 && $lines[$i - 1] =~ m{^\s*//};
        if (!$described_first && @opening && $depth == scalar(@namespaces)) {
            # Two lines more than the header has: the class and its group.
            $lines[$first] = "/*! \\class $qualified\n \\ingroup $group\n\n";
            for my $k (0 .. $#opening) {
                (my $t = $opening[$k]) =~ s{\*/}{* /}g;
                $lines[$first + $k] .= " $t\n";
                $lines[$first + $k] =~ s/^\n//;
            }
            $lines[$last] =~ s/\n$/ *\/\n/;
            $described_first = 1;
        } elsif ($exported && !$above) {
            my $n = $i + 1;
            print STDERR "$path:$n: warning: public class $qualified has no description\n";
        } elsif ($above) {
            # A plain comment right above a further class describes it: it goes in the group.
            $lines[$i] = "/*! \\ingroup $group */ " . $lines[$i] if $exported;
        }
    }
    $depth += () = $l =~ /\{/g;
    $depth -= () = $l =~ /\}/g;
    while (@open_at_depth && $depth <= $open_at_depth[-1]) {
        pop @namespaces;
        pop @open_at_depth;
    }
}
if (!$described_first) {
    for my $i (0 .. $#lines) {
        if ($lines[$i] =~ /^\s*class\s+\w+_EXPORT\s+(\w+)/) {
            my $n = $i + 1;
            print STDERR "$path:$n: warning: public class $1 has no description\n";
            last;
        }
    }
}

# Plain comments on their own lines become Doxygen comments for what follows them.
for my $l (@lines) {
    $l =~ s{^(\s*)//(?!/)}{$1///};
}
print @lines;
